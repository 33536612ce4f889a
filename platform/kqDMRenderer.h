#pragma once

#include "ZelKernelCoreExport.h"

#include <QString>

namespace zel {

// The viewer's renderer, as far as the settings touch it.
class ZEL_KERNEL_CORE_EXPORT kqDMRenderer
{
public:
    // Names of the raytracer qualities, lowest first, as stored in "raytracer/quality".
    static const QString scQualityEnum[4];
    // Index of `name` in scQualityEnum (exact match); 0, the lowest quality, when unknown.
    static int GetRaytracerQuality(const QString& name);

    virtual ~kqDMRenderer();
    // Called when the triangle cap changes: render at most `triangles` triangles from now on.
    virtual void setTargetTriangles(quint64 triangles) = 0;

protected:
    kqDMRenderer() = default;
    Q_DISABLE_COPY_MOVE(kqDMRenderer)
};

} // namespace zel
