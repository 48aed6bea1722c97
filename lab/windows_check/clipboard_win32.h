#pragma once

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// Copying the result list while other programs use the clipboard.
void CheckClipboard(Kit& kit);

}  // namespace tarvik::check
