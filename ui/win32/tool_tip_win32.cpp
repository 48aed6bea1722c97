#include "ui/win32/tool_tip_win32.h"

#include "ui/win32/common_controls_win32.h"

namespace tarvik::ui {

HWND CreateToolTipWindow() {
  // Without an owner: when a form becomes topmost, Wine moves the topmost windows that it owns along, and the
  // form ends up below them, among the ordinary windows. Errors are ignored; only the tip is lost.
  return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                         GetModuleHandleW(nullptr), nullptr);
}

ToolTip::~ToolTip() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void ToolTip::OnPointerOver(HWND form, HWND control) {
  if (text_.empty() || window_ != nullptr) return;
  window_ = CreateToolTipWindow();
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text_.data();
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace tarvik::ui
