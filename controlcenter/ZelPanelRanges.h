#pragma once

#include <QLatin1String>

class QDoubleSpinBox;
class QSlider;
class QSpinBox;

// Each sets a field's bounds from the range of `key` (ZelSettings::GetSettingRange), so
// that the field takes every value the key's validator keeps, shown as it is stored.
namespace zel::PanelRanges {

// Integer: minimum to maximum, counted in the range's step (bytes shown as mebibytes).
void fit(QSpinBox* box, QLatin1String key);
// Decimal: minimum to maximum with the range's decimals.
void fit(QDoubleSpinBox* box, QLatin1String key);
// Ratios: the same as percentages, with two decimals fewer.
void fitPercent(QDoubleSpinBox* box, QLatin1String key);
// Integer: minimum to maximum; Choice: one position per choice, in order.
void fit(QSlider* slider, QLatin1String key);

} // namespace zel::PanelRanges
