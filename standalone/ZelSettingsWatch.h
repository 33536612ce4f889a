#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTimer>

namespace zel {

// Keeps the editor's settings in step with Settings.ini while the window is open: it
// notices what another program (the viewer, torvane-config, a text editor) writes to
// the file, and it writes what Apply left in the settings, checking that the file
// really holds it afterwards.
class ZelSettingsWatch : public QObject
{
    Q_OBJECT

public:
    // `settings` must outlive the watch.
    explicit ZelSettingsWatch(QSettings& settings, QObject* parent = nullptr);
    ~ZelSettingsWatch() override;

    // Writes the settings after an Apply. On failure the file stays as it was, the
    // settings hold its values again (so the pages' edits show as pending for a
    // retry), and `error` tells why in the user's words with the system's reason.
    bool writeApplied(QString& error);

Q_SIGNALS:
    // Another program changed these keys; the settings hold the new values already.
    void changedOutside(const QStringList& keys);

private:
    void watchFile();
    void checkFile();
    bool readFile(QSettings::SettingsMap& values) const;
    // Where the settings hold a value the file does not, they take the file's again.
    void takeFileValues(const QSettings::SettingsMap& values);
    QString writeError() const;

    Q_DISABLE_COPY_MOVE(ZelSettingsWatch)
    QSettings& m_settings;
    QString m_file;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    // The file's values as last read or written by us.
    QSettings::SettingsMap m_known;
    // Set back to the file's values after a failed write; they follow the file until a
    // write succeeds, so the retry never writes them over another program's values.
    QStringList m_heldBack;
};

} // namespace zel
