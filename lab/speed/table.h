#pragma once

#include <string>
#include <vector>

namespace tarvik::lab {

/// The median; of an even number of values the upper of the two middle ones. There must be at least one.
double Median(std::vector<double> values);

/// Prints one row of the table; `detail` is the last column.
void Row(const std::string& what, double figure, const std::string& unit, const std::string& detail);

/// The two figures of a ratio, formatted for the last column.
std::string MeasuredPair(double own, double reference, const std::string& unit);

}  // namespace tarvik::lab
