#include "ZelKernel.h"

#include "kqLibraryUsage.h"

namespace zel {

namespace {

kqLibraryUsage s_kernel("ZelKernel");

} // namespace

bool zelInitializeKernelLibrary()
{
    s_kernel.acquire();
    return true;
}

void zelTerminateKernelLibrary()
{
    s_kernel.release();
}

} // namespace zel
