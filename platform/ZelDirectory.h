#pragma once

#include "ZelKernelCoreExport.h"

#include <string>

namespace zel {

class ZEL_KERNEL_CORE_EXPORT ZelDirectory
{
public:
    // The kernel's temp folder for `applicationName` (UTF-8 in and out): the system temp
    // folder, "/", the name. The folder is not created here.
    static std::string GetTempFolderUtf8(const std::string& applicationName);
};

} // namespace zel
