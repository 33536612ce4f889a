#pragma once

#include <utility>
#include <vector>

double median(std::vector<double> values);
// Half the distance between the quartiles.
double spread(std::vector<double> values);
// The range that holds the ratio of the medians 95 times in 100, by resampling both sets
// of runs: the noise of a busy machine is as large as the differences looked for.
std::pair<double, double> ratioInterval(const std::vector<double>& numerators, const std::vector<double>& denominators);
