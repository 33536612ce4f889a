#include "ConfigMonitor.h"

#include "ConfigCommand.h"
#include "ZelSettings.h"
#include "ZelSettingsFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zel {

namespace {

// Writers replace the file in a few steps, and a text editor may write it in place:
// the file is read once they have settled.
constexpr int SettleMilliseconds = 50;

int signalSockets[2] = {-1, -1};

void onStopSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(signalSockets[1], &byte, 1);
}

// SIGINT and SIGTERM end the event loop rather than the process, so that the run ends
// as a normal one: with exit code 0 and every line written.
bool quitOnStopSignals()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalSockets) != 0)
        return false;
    auto* notifier = new QSocketNotifier(signalSockets[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, QCoreApplication::instance(), &QCoreApplication::quit);
    struct sigaction action = {};
    action.sa_handler = onStopSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    return ::sigaction(SIGINT, &action, nullptr) == 0 && ::sigaction(SIGTERM, &action, nullptr) == 0;
}

// The folder to watch for the file to appear: its own, else the closest one that exists.
QString existingFolder(const QString& file)
{
    QString folder = QFileInfo(file).absolutePath();
    while (!QFileInfo(folder).isDir() && !QDir(folder).isRoot())
        folder = QFileInfo(folder).absolutePath();
    return folder;
}

} // namespace

ConfigMonitor::ConfigMonitor(const QString& settingsFile)
    : m_file(QFileInfo(settingsFile).absoluteFilePath())
    , m_out(stdout)
    , m_err(stderr)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(SettleMilliseconds);
    QObject::connect(&m_settle, &QTimer::timeout, [this] { check(); });
    const auto settleFirst = [this] { m_settle.start(); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, settleFirst);
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, settleFirst);
}

int ConfigMonitor::run()
{
    if (!quitOnStopSignals()) {
        m_err << QStringLiteral("torvane-config: cannot catch SIGINT and SIGTERM: %1")
                     .arg(QString::fromLocal8Bit(std::strerror(errno)))
              << Qt::endl;
        return ExitFileError;
    }
    QString reason;
    if (!read(m_values, reason)) {
        m_err << QStringLiteral("torvane-config: cannot read %1: %2").arg(m_file, reason) << Qt::endl;
        return ExitFileError;
    }
    watch();
    // Scripts and tests wait for this line before they change the file.
    m_err << QStringLiteral("Watching %1 for changes until interrupted").arg(m_file) << Qt::endl;
    QCoreApplication::exec();
    return ExitDone;
}

void ConfigMonitor::watch()
{
    // A file replaced by a rename is a new file, and a folder made again is a new
    // folder: the watch on the old one is gone.
    const QString folder = existingFolder(m_file);
    for (const QString& watched : m_watcher.directories()) {
        if (watched != folder)
            m_watcher.removePath(watched);
    }
    if (!m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (!m_watcher.files().contains(m_file) && QFileInfo(m_file).isFile())
        m_watcher.addPath(m_file);
}

void ConfigMonitor::check()
{
    watch();
    QSettings::SettingsMap values;
    QString reason;
    if (!read(values, reason)) {
        if (!m_unreadable)
            m_err << QStringLiteral("torvane-config: cannot read %1: %2").arg(m_file, reason) << Qt::endl;
        m_unreadable = true;
        return;
    }
    m_unreadable = false;
    printChanges(values);
    m_values = values;
}

bool ConfigMonitor::read(QSettings::SettingsMap& values, QString& reason) const
{
    values.clear();
    reason = ZelSettingsFile::ReadProblem(m_file);
    if (!reason.isEmpty())
        return false;
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly)) {
        reason = file.errorString();
        // Gone since: the same as never there.
        return !file.exists();
    }
    // Not through QSettings: it takes a file of the size and modification time it read
    // last as unchanged, and two writes within the file system's time step have both.
    values = ZelSettingsFile::ReadValues(file.readAll());
    return true;
}

void ConfigMonitor::printChanges(const QSettings::SettingsMap& values)
{
    QStringList keys = m_values.keys() + values.keys();
    keys.sort();
    keys.removeDuplicates();
    for (const QString& key : keys) {
        // Values compare as `get` prints them: a change that `get` does not show is no
        // change here either.
        const auto before = m_values.constFind(key);
        const auto after = values.constFind(key);
        if (before == m_values.cend()) {
            m_out << key << QStringLiteral(": added ") << quoted(ZelSettings::SettingText(*after)) << Qt::endl;
        } else if (after == values.cend()) {
            m_out << key << QStringLiteral(": removed") << Qt::endl;
        } else {
            const QString beforeText = ZelSettings::SettingText(*before);
            const QString afterText = ZelSettings::SettingText(*after);
            if (beforeText != afterText)
                m_out << changeText(key, beforeText, afterText) << Qt::endl;
        }
    }
}

} // namespace zel
