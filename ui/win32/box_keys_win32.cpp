#include "ui/win32/box_keys_win32.h"

#include <utility>

#include "ui/win32/form_win32.h"

namespace tarvik::ui {

const BoxKeys* BoxKeys::innermost_ = nullptr;

BoxKeys::BoxKeys(Win32Form* form, const wchar_t* text) noexcept
    : form_(form),
      text_(text),
      outer_(std::exchange(innermost_, this)),
      hook_(SetWindowsHookExW(WH_MSGFILTER, &OnMessage, nullptr, GetCurrentThreadId())) {}

BoxKeys::~BoxKeys() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  innermost_ = outer_;
}

LRESULT CALLBACK BoxKeys::OnMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
  auto& message = *reinterpret_cast<MSG*>(lParam);
  if (code == MSGF_DIALOGBOX && message.message == WM_KEYDOWN && innermost_->Handles(message)) return TRUE;
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool BoxKeys::Handles(MSG& message) const noexcept {
  if (message.wParam == VK_ESCAPE) {
    Win32Form* form = Win32Form::Of(message.hwnd);
    return form != nullptr && form->FilterMessage(message);
  }
  if (message.wParam != VK_F1 || form_ == nullptr || !form_->onBoxHelp) return false;
  try {
    if (!IsRepeat(message)) form_->onBoxHelp(text_);
  } catch (...) {
    MessageBeep(MB_ICONERROR);
  }
  return true;
}

}  // namespace tarvik::ui
