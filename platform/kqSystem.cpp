#include "kqSystem.h"

#include "kqLibraryUsage.h"

#include <QDir>
#include <QStandardPaths>
#include <QString>

#if defined(Q_OS_WIN)
#include <qt_windows.h>
#include <lmcons.h>
#else
#include <pwd.h>
#include <unistd.h>

#include <vector>
#endif

namespace kq {

namespace {

zel::kqLibraryUsage s_system("kqSystem");
zel::kqLibraryUsage s_sceneGraph("kqSceneGraph");
zel::kqLibraryUsage s_meshLibrary("kqMeshLib");
zel::kqLibraryUsage s_simplificationLibrary("kqSimplificationLib");

QString accountName()
{
#if defined(Q_OS_WIN)
    wchar_t buffer[UNLEN + 1];
    DWORD size = UNLEN + 1;
    if (GetUserNameW(buffer, &size) && size > 1)
        return QString::fromWCharArray(buffer, int(size - 1));
    return {};
#else
    // Containers often run under a uid without a passwd entry: the uid is the name then.
    const uid_t uid = geteuid();
    const long bufferSize = sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(bufferSize > 0 ? size_t(bufferSize) : size_t(16384));
    passwd entry {};
    passwd* found = nullptr;
    if (getpwuid_r(uid, &entry, buffer.data(), buffer.size(), &found) == 0 && found && found->pw_name)
        return QString::fromLocal8Bit(found->pw_name);
    return QString::number(uid);
#endif
}

} // namespace

bool initializeKqSystem(InitType type, bool verbose)
{
    if (type != InitConsole && type != InitGui) {
        qWarning("initializeKqSystem: unknown start type %d", int(type));
        return false;
    }
    s_system.acquire();
    if (verbose)
        qInfo("kqSystem started for a %s application", type == InitGui ? "GUI" : "console");
    return true;
}

void terminateKqSystem()
{
    s_system.release();
}

bool initializeKqSceneGraph()
{
    s_sceneGraph.acquire();
    return true;
}

void terminateKqSceneGraph()
{
    s_sceneGraph.release();
}

bool initializeKqMeshLibrary()
{
    s_meshLibrary.acquire();
    return true;
}

void terminateKqMeshLibrary()
{
    s_meshLibrary.release();
}

bool initializeKqSimplificationLibrary()
{
    s_simplificationLibrary.acquire();
    return true;
}

void terminateKqSimplificationLibrary()
{
    s_simplificationLibrary.release();
}

std::string kqDirUtils::GetAppDataFolderUtf8()
{
#if defined(Q_OS_WIN)
    // Settings roam with the user; Qt's config location on Windows is the local folder.
    const QString roaming = qEnvironmentVariable("APPDATA");
    if (!roaming.isEmpty())
        return QDir::fromNativeSeparators(roaming).toStdString();
#endif
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString();
}

std::string kqSystemUtils::GetCurrentUserNameUtf8()
{
    for (const char* variable : {"USER", "USERNAME", "LOGNAME"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            return name.toStdString();
    }
    const QString name = accountName();
    return name.isEmpty() ? std::string("user") : name.toStdString();
}

} // namespace kq
