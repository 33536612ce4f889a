#include "kqDMManager.h"

#include <algorithm>
#include <cmath>

namespace zel {

namespace {

// Below this the simplifier leaves too few triangles to recognise a part.
constexpr float MinimumRatio = 0.01f;

} // namespace

bool kqDMManager::correctRatios(std::vector<float>& ratios)
{
    bool changed = false;
    // The first level is the full model; each further level keeps at most what the one
    // before kept, so a NaN simply repeats the level before.
    float previous = 1.0f;
    for (auto it = ratios.begin(); it != ratios.end(); ++it) {
        const float corrected = it == ratios.begin() || std::isnan(*it) ? previous
                                                                          : std::clamp(*it, MinimumRatio, previous);
        // Negated so that a NaN counts as a change.
        if (!(corrected == *it))
            changed = true;
        *it = corrected;
        previous = corrected;
    }
    return changed;
}

kqDMManager::~kqDMManager() = default;

} // namespace zel
