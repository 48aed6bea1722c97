#pragma once

#include <string>
#include <vector>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// Runs the sections, or only those named. One that throws becomes the failed item "NAME.section". `onStep`:
/// called before each section with its title, its index and their number.
void RunSections(Kit& kit, const std::vector<std::string>& names,
                 const std::function<void(const std::string&, int, int)>& onStep);

}  // namespace tarvik::check
