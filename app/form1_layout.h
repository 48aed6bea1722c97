#pragma once

#include "app/form1_controls.h"
#include "ui/form.h"

namespace tarvik {

/// Places every control of the main window on one grid, so that no caption is cut in any of the program's
/// languages, and gives the window the size that this needs: the design size.
void LayOutForm1(ui::Form& form, Form1Controls& controls);

}  // namespace tarvik
