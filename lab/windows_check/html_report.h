#pragma once

#include <string>
#include <vector>

#include "lab/windows_check/masking.h"
#include "lab/windows_check/report.h"

namespace tarvik::check {

/// The report as one HTML file: no links, no scripts, pictures as data: URIs. At its end is the same as JSON
/// without the pictures, one item per line. `heading`: when and with which version,
/// UTF-8; not masked, because a version looks like a public address.
std::string HtmlReport(const std::vector<Item>& items, const Mask& mask, const std::string& heading);

}  // namespace tarvik::check
