#include "ui/win32/message_filter_win32.h"

#include <algorithm>

#include "ui/win32/controls_win32.h"
#include "ui/win32/form_win32.h"

// Includes the form's side of the filter: Esc, Enter, Tab, mnemonics and validation. Shortcuts are in
// form_menus_win32.cpp.

namespace tarvik::ui {
namespace {

bool IsKey(const MSG& message) { return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST; }

bool IsMouse(const MSG& message) {
  return message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
}

bool IsHeld(int key) { return GetKeyState(key) < 0; }

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
  // Windows sends a disabled window no input, but one of its controls may still have the focus.
  if (!Enabled()) return true;
  if (IsLeftOrRightDown(message)) {
    const ControlWindow* target = ControlOf(message.hwnd);
    return target != nullptr && target->AcceptsFocusAt(PlaceOf(message.lParam)) && !MayMoveFocusTo(target);
  }
  if (!IsKey(message)) return false;
  if (message.message == WM_KEYDOWN && FilterKeyDown(message)) return true;
  if (message.message == WM_SYSCHAR || message.message == WM_CHAR) return FilterMnemonic(message);
  return IsDialogMessageW(window_, &message) != FALSE;
}

bool Win32Form::MayMoveFocusTo(const ControlWindow* target) {
  ControlWindow* from = ControlOf(GetFocus());
  if (from == nullptr || from == target) return true;
  return (target != nullptr && !target->CausesValidation()) || from->Validate();
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
      return FilterShortcut(message) || FilterHelp(message);
  }
}

bool Win32Form::FilterHelp(const MSG& message) {
  if (message.wParam != VK_F1 || !onHelp) return false;
  if (!IsRepeat(message)) RunHandler(*this, onHelp);
  return true;
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
  // Otherwise holding Enter down would start a test and stop it at once.
  if (IsRepeat(message)) return true;
  ControlWindow* control = ControlOf(message.hwnd);
  if (control == nullptr) return true;
  if (dynamic_cast<Win32Button*>(control) != nullptr) {
    control->OnCommand(BN_CLICKED);
    return true;
  }
  if (const auto* combo = dynamic_cast<const Win32ComboBox*>(control)) {
    const bool listWasOpen = combo->IsListOpen();
    DispatchMessageW(&message);
    if (listWasOpen) return true;
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
  if (MayMoveFocusTo(first->get())) (*first)->OnCommand(BN_CLICKED);
}

bool Win32Form::FilterTab(MSG& message) {
  if (!IsHeld(VK_CONTROL)) {
    HWND next = GetNextDlgTabItem(window_, message.hwnd, IsHeld(VK_SHIFT));
    return !MayMoveFocusTo(ControlOf(next)) || IsDialogMessageW(window_, &message) != FALSE;
  }
  if (!MayMoveFocusTo(nullptr)) return true;
  if (tabStrip_ != nullptr) tabStrip_->CyclePages(IsHeld(VK_SHIFT));
  return true;
}

bool Win32Form::FilterMnemonic(const MSG& message) {
  // Without Alt, a letter is a mnemonic only where it cannot be typed, such as on buttons and tabs.
  if (message.message == WM_CHAR && (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS) != 0)
    return false;
  const wchar_t letter = UpperCase(static_cast<wchar_t>(message.wParam));
  if (letter <= L' ') return false;
  // The search starts after the control with the focus, so that controls with the same mnemonic take turns.
  const ControlWindow* focus = ControlOf(GetFocus());
  size_t start = 0;
  while (start < controls_.size() && controls_[start].get() != focus) ++start;
  for (size_t step = 1; step <= controls_.size(); ++step) {
    ControlWindow* control = controls_[(start + step) % controls_.size()].get();
    if (!IsReachable(control->Window()) || !control->HasMnemonic(letter)) continue;
    if (MayMoveFocusTo(control)) control->OnMnemonic(letter);
    return true;
  }
  return false;
}

}  // namespace tarvik::ui
