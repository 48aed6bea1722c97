#pragma once

#include "ui/form.h"

namespace tarvik {

/// Every control of the PMC read test window, created in the order of the Tab key. Captions are the
/// built-in English ones.
struct PmcTestControls {
  explicit PmcTestControls(ui::Form& form);

  ui::Label& lblPmcAddr;  ///< Label1, index 0
  ui::ComboBox& cmbPmcAddr;
  ui::Label& lblPmcStart;  ///< Label1, index 1
  ui::TextBox& txtPmcStart;
  ui::Label& lblPmcLen;  ///< Label1, index 2
  ui::TextBox& txtPmcLen;
  ui::Label& lblTest;  ///< Label1, index 3
  ui::TextBox& txtCount;
  ui::Label& lblSleep;  ///< Label1, index 4
  ui::TextBox& txtSleep;

  ui::Label& lblData;  ///< Label1, index 5
  ui::ListBox& lstData;
  ui::Label& lblResult;  ///< Label1, index 6
  ui::ListBox& lstResult;

  ui::Label& lblCount;
  ui::Button& cmdRead;
  ui::Button& cmdStop;
  ui::Button& cmdClose;
};

/// Places the controls so that they fill the window and no caption is truncated in any of the program's
/// languages. Returns the minimum outer window size for that.
ui::Size LayOutPmcTest(ui::Form& form, PmcTestControls& controls);

}  // namespace tarvik
