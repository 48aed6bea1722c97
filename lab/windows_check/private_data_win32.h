#pragma once

#include "lab/windows_check/masking.h"

namespace tarvik::check {

/// A mask with the names of this user and this computer.
Mask MaskOfThisPc();

}  // namespace tarvik::check
