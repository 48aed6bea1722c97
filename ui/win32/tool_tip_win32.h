#pragma once

#include <string>
#include <utility>

#include "platform/windows_win32.h"

namespace tarvik::ui {

/// The tool tip of one control. Its window is created when the pointer is first over the control.
class ToolTip {
 public:
  explicit ToolTip(std::wstring text = {}) : text_(std::move(text)) {}
  ToolTip(const ToolTip&) = delete;
  ToolTip& operator=(const ToolTip&) = delete;
  ~ToolTip();

  /// Before the tip's window exists. An empty text is no tip.
  void SetText(const std::wstring& text) { text_ = text; }

  /// For each time the pointer is over the control.
  void OnPointerOver(HWND form, HWND control);

 private:
  std::wstring text_;
  HWND window_ = nullptr;
};

}  // namespace tarvik::ui
