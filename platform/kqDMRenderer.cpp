#include "kqDMRenderer.h"

#include <iterator>

namespace zel {

// Lowest first: the index is the quality slider's position.
const QString kqDMRenderer::scQualityEnum[4] = {
    QStringLiteral("low"),
    QStringLiteral("medium"),
    QStringLiteral("high"),
    QStringLiteral("ultra"),
};

int kqDMRenderer::GetRaytracerQuality(const QString& name)
{
    for (int i = 0; i < int(std::size(scQualityEnum)); ++i) {
        if (scQualityEnum[i] == name)
            return i;
    }
    return 0;
}

kqDMRenderer::~kqDMRenderer() = default;

} // namespace zel
