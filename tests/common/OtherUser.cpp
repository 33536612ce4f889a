#include "OtherUser.h"

#include "TestHome.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

void OtherUser::prepare(QProcess& process, const TestHome& home) const
{
    const auto path = [](const QString& folder) { return QFile::encodeName(folder); };
    const QString runtime = home.path() + QStringLiteral("/runtime-other");
    QDir().mkpath(runtime);
    for (const QString& folder : {home.path(), home.configPath(), home.path() + QStringLiteral("/home")})
        chmod(path(folder).constData(), 0755);
    chmod(path(home.tempPath()).constData(), 01777);
    if (chown(path(runtime).constData(), uid, gid) != 0 || chmod(path(runtime).constData(), 0700) != 0)
        qWarning("The other user's runtime folder is not theirs: %s", qPrintable(runtime));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    process.setProcessEnvironment(environment);
    if (uid == geteuid())
        return;
    process.setChildProcessModifier([user = uid, group = gid] {
        if (setgid(group) != 0 || setuid(user) != 0)
            _exit(126);
    });
}

std::optional<OtherUser> otherUser()
{
    if (geteuid() != 0)
        return OtherUser {geteuid(), getegid()};
    const passwd* nobody = getpwnam("nobody");
    if (!nobody)
        return std::nullopt;
    return OtherUser {nobody->pw_uid, nobody->pw_gid};
}
