#include "StartupStatistics.h"

#include <algorithm>
#include <random>

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double spread(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return (values[values.size() * 3 / 4] - values[values.size() / 4]) / 2;
}

std::pair<double, double> ratioInterval(const std::vector<double>& numerators, const std::vector<double>& denominators)
{
    std::mt19937 random(20261123);
    const auto resample = [&random](const std::vector<double>& values) {
        std::uniform_int_distribution<std::size_t> pick(0, values.size() - 1);
        std::vector<double> drawn(values.size());
        for (double& value : drawn)
            value = values[pick(random)];
        return drawn;
    };
    std::vector<double> ratios(2000);
    for (double& ratio : ratios)
        ratio = median(resample(numerators)) / median(resample(denominators));
    std::sort(ratios.begin(), ratios.end());
    return {ratios[ratios.size() / 40], ratios[ratios.size() * 39 / 40]};
}
