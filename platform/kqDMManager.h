#pragma once

#include "ZelKernelCoreExport.h"

#include <QtGlobal>

#include <vector>

namespace zel {

// The viewer's 3D database manager, as far as the settings touch it.
class ZEL_KERNEL_CORE_EXPORT kqDMManager
{
public:
    // Brings simplification ratios into valid form: each within 0.01..1, the first 1,
    // none above the one before (a NaN takes the value before it). True when anything
    // changed.
    static bool correctRatios(std::vector<float>& ratios);

    virtual ~kqDMManager();
    // Called when the cache size changes: keep the disk cache under `megabytes`.
    virtual void setMaxCacheSize(unsigned int megabytes) = 0;
    // Called when the ratios change: simplify the export levels with `ratios` from now on.
    virtual void setSimplificationRatios(std::vector<float>& ratios) = 0;

protected:
    kqDMManager() = default;
    Q_DISABLE_COPY_MOVE(kqDMManager)
};

} // namespace zel
