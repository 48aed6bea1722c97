#include "ui/win32/message_filter_win32.h"

#include <algorithm>

#include "ui/win32/controls_win32.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {
namespace {

bool IsKey(const MSG& message) { return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST; }

bool IsMouse(const MSG& message) {
  return message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
}

bool IsHeld(int key) { return GetKeyState(key) < 0; }

/// True for a key that is held down so long that it repeats.
bool IsRepeat(const MSG& message) { return (static_cast<ULONG_PTR>(message.lParam) & (1U << 30)) != 0; }

bool IsLeftOrRightDown(const MSG& message) {
  return message.message == WM_LBUTTONDOWN || message.message == WM_LBUTTONDBLCLK ||
         message.message == WM_RBUTTONDOWN;
}

POINT PlaceOf(LPARAM lParam) {
  return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

}  // namespace

void MessageFilter::Dispatch(MSG& message) const {
  Win32Form* form = IsKey(message) || IsMouse(message) ? Win32Form::Of(message.hwnd) : nullptr;
  if (form != nullptr && form->FilterMessage(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int RunMainLoop(const MessageFilter& filter) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) filter.Dispatch(message);
  return static_cast<int>(message.wParam);
}

bool Win32Form::FilterMessage(MSG& message) {
  // A disabled window gets no input from the system, but a control of it may still have the focus.
  if (!Enabled()) return true;
  if (IsLeftOrRightDown(message)) {
    const ControlWindow* target = ControlOf(message.hwnd);
    return target != nullptr && target->TakesFocusAt(PlaceOf(message.lParam)) && !MayLeaveFor(target);
  }
  if (!IsKey(message)) return false;
  if (message.message == WM_KEYDOWN && FilterKeyDown(message)) return true;
  if (message.message == WM_SYSCHAR || message.message == WM_CHAR) return FilterMnemonic(message);
  return IsDialogMessageW(window_, &message) != FALSE;
}

bool Win32Form::MayLeaveFor(const ControlWindow* target) {
  ControlWindow* from = ControlOf(GetFocus());
  if (from == nullptr || from == target) return true;
  return (target != nullptr && !target->AsksBeforeEntered()) || from->AgreesToLeave();
}

bool Win32Form::FilterKeyDown(MSG& message) {
  switch (message.wParam) {
    case VK_ESCAPE:
      return FilterEscape(message);
    case VK_RETURN:
      return FilterEnter(message);
    case VK_TAB:
      return FilterTab(message);
    default:
      return false;
  }
}

bool Win32Form::FilterEscape(const MSG& message) {
  const auto* combo = dynamic_cast<const Win32ComboBox*>(ControlOf(message.hwnd));
  if (combo != nullptr && combo->IsListOpen())
    DispatchMessageW(&message);
  else if (onEscape && !IsRepeat(message))
    RunHandler(*this, onEscape);
  return true;
}

bool Win32Form::FilterEnter(const MSG& message) {
  // A key held too long would start a test, and then be the stop request of the very same.
  if (IsRepeat(message)) return true;
  ControlWindow* control = ControlOf(message.hwnd);
  if (control == nullptr) return true;
  if (dynamic_cast<Win32Button*>(control) != nullptr) {
    control->OnCommand(BN_CLICKED);
    return true;
  }
  if (const auto* combo = dynamic_cast<const Win32ComboBox*>(control)) {
    const bool aboutTheList = combo->IsListOpen();
    DispatchMessageW(&message);
    if (aboutTheList) return true;
  }
  PressDefaultButton(control->Page());
  return true;
}

void Win32Form::PressDefaultButton(int page) {
  if (HeldShiftStates() != 0) return;
  const auto first = std::find_if(controls_.begin(), controls_.end(), [page](const auto& control) {
    return control->Page() == page && dynamic_cast<const Win32Button*>(control.get()) != nullptr;
  });
  if (first == controls_.end() || !IsReachable((*first)->Window())) return;
  if (MayLeaveFor(first->get())) (*first)->OnCommand(BN_CLICKED);
}

bool Win32Form::FilterTab(MSG& message) {
  if (!IsHeld(VK_CONTROL)) {
    HWND next = GetNextDlgTabItem(window_, message.hwnd, IsHeld(VK_SHIFT));
    return !MayLeaveFor(ControlOf(next)) || IsDialogMessageW(window_, &message) != FALSE;
  }
  if (!MayLeaveFor(nullptr)) return true;
  if (tabStrip_ != nullptr) tabStrip_->Walk(IsHeld(VK_SHIFT));
  return true;
}

bool Win32Form::FilterMnemonic(const MSG& message) {
  // Without Alt a letter is a mnemonic where it cannot be typed: on buttons and tabs.
  if (message.message == WM_CHAR && (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS) != 0)
    return false;
  const wchar_t letter = UpperCase(static_cast<wchar_t>(message.wParam));
  if (letter <= L' ') return false;
  // Once around, from the control behind the one that has the focus: so two of one letter take turns.
  const ControlWindow* focus = ControlOf(GetFocus());
  size_t start = 0;
  while (start < controls_.size() && controls_[start].get() != focus) ++start;
  for (size_t step = 1; step <= controls_.size(); ++step) {
    ControlWindow* control = controls_[(start + step) % controls_.size()].get();
    if (!IsReachable(control->Window()) || !control->HasMnemonic(letter)) continue;
    if (MayLeaveFor(control)) control->OnMnemonic(letter);
    return true;
  }
  return false;
}

}  // namespace tarvik::ui
