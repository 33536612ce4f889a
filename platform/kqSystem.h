#pragma once

#include "ZelKernelCoreExport.h"

#include <string>

namespace kq {

// How kqSystem starts: the values are the kernel's own.
enum InitType {
    InitConsole = 1,
    InitGui = 2,
};

// Library start and stop; each initialize is paired with its terminate, in reverse order.
ZEL_KERNEL_CORE_EXPORT bool initializeKqSystem(InitType type, bool verbose);
ZEL_KERNEL_CORE_EXPORT void terminateKqSystem();
ZEL_KERNEL_CORE_EXPORT bool initializeKqSceneGraph();
ZEL_KERNEL_CORE_EXPORT void terminateKqSceneGraph();
ZEL_KERNEL_CORE_EXPORT bool initializeKqMeshLibrary();
ZEL_KERNEL_CORE_EXPORT void terminateKqMeshLibrary();
ZEL_KERNEL_CORE_EXPORT bool initializeKqSimplificationLibrary();
ZEL_KERNEL_CORE_EXPORT void terminateKqSimplificationLibrary();

class ZEL_KERNEL_CORE_EXPORT kqDirUtils
{
public:
    // The per-user application-data folder (UTF-8): the roaming folder on Windows, the
    // XDG config folder elsewhere.
    static std::string GetAppDataFolderUtf8();
};

class ZEL_KERNEL_CORE_EXPORT kqSystemUtils
{
public:
    // The login name of the current user (UTF-8); never empty.
    static std::string GetCurrentUserNameUtf8();
};

} // namespace kq
