#include "ZelPanelRanges.h"

#include "ZelSettingRange.h"
#include "ZelSettings.h"

#include <QDoubleSpinBox>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace zel::PanelRanges {

namespace {

// The values times 10^shift, with that many decimals fewer.
void fitShifted(QDoubleSpinBox* box, QLatin1String key, int shift)
{
    const SettingRange range = ZelSettings::GetSettingRange(key);
    const double scale = std::pow(10.0, shift);
    // Decimals first: the spin box rounds its bounds to them.
    box->setDecimals(std::max(0, range.decimals - shift));
    box->setRange(range.minimum * scale, range.maximum * scale);
}

} // namespace

void fit(QSpinBox* box, QLatin1String key)
{
    const SettingRange range = ZelSettings::GetSettingRange(key);
    box->setRange(int(range.minimum / range.step), int(range.maximum / range.step));
}

void fit(QDoubleSpinBox* box, QLatin1String key)
{
    fitShifted(box, key, 0);
}

void fitPercent(QDoubleSpinBox* box, QLatin1String key)
{
    fitShifted(box, key, 2);
}

void fit(QSlider* slider, QLatin1String key)
{
    const SettingRange range = ZelSettings::GetSettingRange(key);
    if (range.kind == SettingRange::Kind::Choice)
        slider->setRange(0, int(range.choices.size()) - 1);
    else
        slider->setRange(int(range.minimum), int(range.maximum));
}

} // namespace zel::PanelRanges
