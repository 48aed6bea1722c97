#pragma once

#include <initializer_list>

#include "ui/form.h"
#include "ui/layout.h"

// What the layouts of the program's windows have in common.

namespace tarvik::ui {

/// The grid of every window, in pixels of its present scaling.
struct Spacing {
  int gap;     ///< between controls that belong together: a third of a line of text, 5 pixels at 100 percent
  int margin;  ///< around groups and along the window's borders: two gaps
};

Spacing SpacingOf(const Form& form);

/// A control wide enough for its present caption and for its message in either language, and also for
/// `others`, messages that it shows at times.
BoxPtr Captioned(Control& control, std::initializer_list<Message> others = {});

/// A control wide enough for `sample`.
BoxPtr Sized(Control& control, const wchar_t* sample);

/// The outer size of a window whose client area has that size.
Size WindowSizeFor(const Form& form, Size client);

}  // namespace tarvik::ui
