#include "lab/speed/table.h"

#include <algorithm>
#include <cstdio>

namespace tarvik::lab {

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void Row(const std::string& what, double figure, const std::string& unit, const std::string& detail) {
  std::printf("  %-48s %10.2f %-8s %s\n", what.c_str(), figure, unit.c_str(), detail.c_str());
  std::fflush(stdout);
}

std::string MeasuredPair(double own, double reference, const std::string& unit) {
  char text[80];
  std::snprintf(text, sizeof text, "(%.1f / %.1f %s)", own, reference, unit.c_str());
  return text;
}

}  // namespace tarvik::lab
