#pragma once

#include <initializer_list>

#include "ui/form.h"
#include "ui/layout.h"

// Spacing and boxes that the layouts of all windows share.

namespace tarvik::ui {

/// Distances between controls, in pixels at the window's current scaling.
struct Spacing {
  int gap;     ///< between related controls: a third of a line of text, 5 pixels at 100 percent
  int margin;  ///< around groups and along the window's edges: two gaps
};

Spacing SpacingOf(const Form& form);

/// A control wide enough for its current caption, for its message in every built-in language, and for
/// `others`, messages that it shows at times.
BoxPtr Captioned(Control& control, std::initializer_list<Message> others = {});

/// A control wide enough for `sample`.
BoxPtr Sized(Control& control, const wchar_t* sample);

/// The outer size at which the window's client area has the size `client`.
Size WindowSizeFor(const Form& form, Size client);

/// The minimum outer size of a window whose controls need that size, the last of them a list that may shrink:
/// at most as high as the work area.
Size MinWindowSizeFor(const Form& form, Size client);

/// The height of a list that should have `wanted` pixels, in a window whose other controls, gaps and margins
/// need `others`: what the work area leaves, but at least one line.
int ListHeightFor(const Form& form, int wanted, int others);

}  // namespace tarvik::ui
