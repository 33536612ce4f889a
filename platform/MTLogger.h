#pragma once

#include "ZelKernelExport.h"

#include <string>

namespace zel {

// The kernel's file logger.
class ZEL_KERNEL_EXPORT MTLogger
{
public:
    // Appends every Qt message to `logFile` (UTF-8 path) as well as passing it on to the
    // handler installed before. Debug messages are written only in `diagnostics` mode.
    // `blacklist` names message types never written, separated by commas or blanks:
    // "debug", "info", "warning", "critical", "fatal" (case-insensitive).
    // False, with nothing installed, when the file cannot be opened for appending.
    static bool InstallFileHandler(const std::string& logFile, bool diagnostics, const std::string& blacklist);
    // Restores the handler that was installed before and closes the file.
    static void UninstallFileHandler();
};

} // namespace zel
