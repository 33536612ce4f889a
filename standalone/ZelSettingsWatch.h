#pragma once

#include "ZelSettingsFile.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTimer>

#include <vector>

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
    // When the write replaced values another program stored since the last Apply, the
    // file as it held them is kept beside it (outsideValuesReplaced() tells).
    bool writeApplied(QString& error);

Q_SIGNALS:
    // Another program changed these keys; the settings hold the new values already.
    void changedOutside(const QStringList& keys);
    // An Apply replaced these values of another program's (key, its value, ours). The
    // file as it held them is `copy`; when no copy could be kept, `copyError` says why.
    void outsideValuesReplaced(const std::vector<zel::SettingRepair>& values, const QString& copy,
                               const QString& copyError);
    // An Apply found the file removed or holding no readable setting (`hadValues` false),
    // or without its layout version, and wrote the version back with the edits. The file
    // as it was is `copy`, when it held anything; `copyError` says why no copy was kept.
    void versionRestoredOnApply(bool hadValues, const QString& copy, const QString& copyError);

private:
    void watchFile();
    void checkFile();
    bool readFile(QSettings::SettingsMap& values, QByteArray* bytes = nullptr) const;
    // After a write: what the write replaced of another program's values, and what
    // another program wrote just before it, which the pages have not shown yet.
    void reportOutsideValues(const QSettings::SettingsMap& before, const QByteArray& beforeBytes,
                             const QSettings::SettingsMap& after, bool versionRestored);
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
    // Keys another program changed since our last write: an edit begun before it
    // would replace that program's value without the user having seen it.
    QStringList m_outsideKeys;
    // Set back to the file's values after a failed write; they follow the file until a
    // write succeeds, so the retry never writes them over another program's values.
    QStringList m_heldBack;
};

} // namespace zel
