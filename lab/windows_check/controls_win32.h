#pragma once

#include <string>
#include <vector>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// A control of a window of the product, as another process sees it. A combo box is one control.
struct ControlState {
  HWND window = nullptr;
  int id = 0;
  std::wstring windowClass;
  std::wstring text;
  RECT box{};  ///< on the screen, in pixels
};

/// The visible controls that show something to the user, in the order of creation: labels, buttons, fields,
/// lists and the row of tabs.
std::vector<ControlState> VisibleControls(HWND window);

/// The control with this id. Throws CheckError if there is no such control.
HWND ChildOf(HWND window, int id);

/// Sends the menu command and returns the window of this class that it opens. Throws CheckError when none
/// does.
HWND OpenByCommand(RunningProduct& product, Driver& driver, int command, const char* windowClass);

/// The visible captions of the row of tabs.
std::vector<std::string> TabCaptions(RunningProduct& product);

/// "&Ping (1203)", for the details of an item.
std::string NameOf(const ControlState& control);

/// The window's text, which may be that of a control of another process; empty when it does not answer.
std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);

/// Whether it is the field or the list inside a combo box.
bool IsPartOfComboBox(HWND window);

/// True under Wine, which lacks some of what is checked.
bool IsWine();

/// A rule that is checked in many places: collects where it is broken.
class Findings {
 public:
  void Add(const std::string& finding) { text_ += finding + "\n"; }
  bool None() const { return text_.empty(); }
  /// The findings, or this text if nothing was found.
  std::string Or(const std::string& text) const { return None() ? text : text_; }

 private:
  std::string text_;
};

}  // namespace tarvik::check
