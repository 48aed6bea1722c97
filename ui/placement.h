#pragma once

#include "ui/control.h"

namespace tarvik::ui {

/// Where a window of that size goes next to another one: right, left, below or above it, where it covers the
/// least of `keep`, and then of the other window. Always inside the work area. On the right and on the left
/// it becomes narrower, down to `minimumWidth`, to fit. Everything in pixels of the screen.
Rect BesideWindow(Size size, int minimumWidth, const Rect& window, const Rect& keep, const Rect& workArea);

}  // namespace tarvik::ui
