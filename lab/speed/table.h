#pragma once

#include <string>
#include <vector>

namespace tarvik::lab {

/// The middle one of at least one value.
double Median(std::vector<double> values);

/// Prints one row of the table.
void Row(const std::string& what, double figure, const std::string& unit, const std::string& beside);

/// The two measures behind a ratio, as the last column shows them.
std::string Beside(double own, double measure, const std::string& unit);

}  // namespace tarvik::lab
