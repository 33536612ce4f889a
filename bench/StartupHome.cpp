#include "StartupHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// A desktop session's runtime folder, where the editor's single-instance lock lives, is
// /run/user/<uid>; without a session, /dev/shm stands in for it.
QString memoryFolder()
{
    const QString session = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!session.isEmpty())
        return session;
    return QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
}

bool writeFile(const QString& path, const QByteArray& contents)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(contents) == contents.size();
}

} // namespace

StartupHome::StartupHome()
    : m_runtime(memoryFolder() + QStringLiteral("/startup-benchmark-XXXXXX"))
{
    m_settingsWritten = writeFile(filePath(QStringLiteral("config/TorvaneBoundlessX64/Settings.ini")),
                                  "settingsVersion=2\nengine=deferred\n");
}

bool StartupHome::isValid() const
{
    return m_root.isValid() && m_runtime.isValid() && m_settingsWritten;
}

QString StartupHome::filePath(const QString& name) const
{
    return m_root.filePath(name);
}

QProcessEnvironment StartupHome::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // A desktop's theme or style would measure the desktop rather than the program.
    environment.remove(QStringLiteral("QT_QPA_PLATFORMTHEME"));
    environment.remove(QStringLiteral("QT_STYLE_OVERRIDE"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(STARTUP_PROBE));
    environment.insert(QStringLiteral("HOME"), m_root.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), filePath(QStringLiteral("cache")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_STATE_HOME"), filePath(QStringLiteral("state")));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path());
    environment.insert(QStringLiteral("TMPDIR"), m_root.path());
    return environment;
}
