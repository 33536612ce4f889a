#include "TestHome.h"

#include <QDir>
#include <QFile>

TestHome::TestHome()
{
    const std::pair<const char*, QString> folders[] = {
        {"HOME", path() + QStringLiteral("/home")},
        {"XDG_CONFIG_HOME", configPath()},
        {"XDG_CACHE_HOME", path() + QStringLiteral("/cache")},
        {"XDG_DATA_HOME", path() + QStringLiteral("/data")},
        {"TMPDIR", tempPath()},
    };
    for (const auto& [variable, folder] : folders) {
        QDir().mkpath(folder);
        qputenv(variable, QFile::encodeName(folder));
    }
}

bool TestHome::isValid() const
{
    return m_root.isValid();
}

QString TestHome::path() const
{
    return m_root.path();
}

QString TestHome::configPath() const
{
    return path() + QStringLiteral("/config");
}

QString TestHome::tempPath() const
{
    return path() + QStringLiteral("/tmp");
}
