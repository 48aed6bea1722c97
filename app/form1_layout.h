#pragma once

#include "app/form1_controls.h"
#include "ui/form.h"

namespace tarvik {

/// Places every control of the main window on one grid, so that no caption is cut in any of the program's
/// languages. Returns the outer window size that this needs: the design size.
ui::Size LayOutForm1(ui::Form& form, Form1Controls& controls);

}  // namespace tarvik
