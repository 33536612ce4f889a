#pragma once

#include <QFileSystemWatcher>
#include <QSettings>
#include <QString>
#include <QTextStream>
#include <QTimer>

namespace zel {

// torvane-config monitor: prints each change to one settings file as it happens, one
// flushed line a key, until SIGINT or SIGTERM. It follows the path, not the file, so
// it sees through writers that replace the file by a rename and through a file
// deleted and made again.
class ConfigMonitor
{
public:
    explicit ConfigMonitor(const QString& settingsFile);

    // Runs until interrupted; the exit code.
    int run();

private:
    Q_DISABLE_COPY_MOVE(ConfigMonitor)

    void watch();
    void check();
    // The file's values; none when there is no file. False, with the reason, when it
    // cannot be read.
    bool read(QSettings::SettingsMap& values, QString& reason) const;
    void printChanges(const QSettings::SettingsMap& values);

    QString m_file;
    QFileSystemWatcher m_watcher;
    QTimer m_settle;
    QSettings::SettingsMap m_values;
    // Said once until the file can be read again.
    bool m_unreadable = false;
    QTextStream m_out;
    QTextStream m_err;
};

} // namespace zel
