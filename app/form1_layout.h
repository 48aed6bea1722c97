#pragma once

#include "app/form1_controls.h"
#include "ui/form.h"

namespace tarvik {

/// Places every control of the main window so that no caption is truncated in any language. Returns the
/// design size: the outer window size this needs, in pixels.
ui::Size LayOutForm1(ui::Form& form, Form1Controls& controls);

}  // namespace tarvik
