#pragma once

#include "app/form1_controls.h"
#include "ui/form.h"

namespace tarvik {

/// Places every control of the main window so that no caption is truncated in any language. Returns the
/// design size: the outer window size this needs, in pixels.
ui::Size LayOutForm1(ui::Form& form, Form1Controls& controls, bool familyEdition);

/// Gives the result list that size. The answer ends at its right edge, and the status bar follows the bottom
/// edge of the window.
void ResizeResultList(ui::Form& form, Form1Controls& controls, ui::Size size);

}  // namespace tarvik
