#pragma once

#include <string>
#include <utility>

#include "platform/windows_win32.h"

namespace tarvik::ui {

/// A tool tip window without tools, which the caller destroys; null when it cannot be created.
HWND CreateToolTipWindow();

/// The tool tip of one control. Its window is created when the pointer first moves over the control.
class ToolTip {
 public:
  explicit ToolTip(std::wstring text = {}) : text_(std::move(text)) {}
  ToolTip(const ToolTip&) = delete;
  ToolTip& operator=(const ToolTip&) = delete;
  ~ToolTip();

  /// Must be called before the tip's window is created. An empty text means no tip.
  void SetText(const std::wstring& text) { text_ = text; }

  /// Must be called whenever the pointer is over the control.
  void OnPointerOver(HWND form, HWND control);

 private:
  std::wstring text_;
  HWND window_ = nullptr;
};

}  // namespace tarvik::ui
