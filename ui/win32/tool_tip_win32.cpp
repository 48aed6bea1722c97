#include "ui/win32/tool_tip_win32.h"

#include "ui/win32/common_controls_win32.h"

namespace tarvik::ui {

ToolTip::~ToolTip() {
  if (window_ != nullptr) DestroyWindow(window_);
}

void ToolTip::OnPointerOver(HWND form, HWND control) {
  if (text_.empty() || window_ != nullptr) return;
  // A topmost window that the form owned would be moved along by Wine when the form itself is to be kept
  // above the others, and the form would end up behind it, among the ordinary windows. A control without its
  // tip is still a control, so a failure is ignored.
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text_.data();
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace tarvik::ui
