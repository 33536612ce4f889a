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
    // The session's runtime folder must be the user's alone, or Qt refuses it.
    const QString runtime = path() + QStringLiteral("/runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
}
