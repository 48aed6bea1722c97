#pragma once

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// The product in folders with unusual names, lengths and rights, and with the rights of an ordinary user.
void CheckFolders(Kit& kit);

}  // namespace tarvik::check
