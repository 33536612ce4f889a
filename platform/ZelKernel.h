#pragma once

#include "ZelKernelExport.h"

namespace zel {

// Start and stop of the kernel library itself, after and before the kq libraries.
ZEL_KERNEL_EXPORT bool zelInitializeKernelLibrary();
ZEL_KERNEL_EXPORT void zelTerminateKernelLibrary();

} // namespace zel
