// Which control of the window has the keyboard's focus, and where the focus moves.

#include "ui/win32/form_win32.h"

namespace tarvik::ui {

bool Win32Form::IsReachable(HWND control) const {
  for (HWND window = control; window != window_; window = GetAncestor(window, GA_PARENT)) {
    if (window == nullptr) return false;
    const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
    if ((style & WS_VISIBLE) == 0 || (style & WS_DISABLED) != 0) return false;
  }
  return true;
}

bool Win32Form::IsTabStop(HWND control) const {
  return (static_cast<DWORD>(GetWindowLongW(control, GWL_STYLE)) & WS_TABSTOP) != 0 && IsReachable(control);
}

void Win32Form::FocusOn(HWND control) {
  if (!IsReachable(control)) return;
  if (GetActiveWindow() == window_ && Enabled())
    ::SetFocus(control);
  else
    lastFocus_ = control;
}

bool Win32Form::FocusIsIn(HWND control) const {
  HWND focus = GetActiveWindow() == window_ ? GetFocus() : lastFocus_;
  return focus != nullptr && (focus == control || IsChild(control, focus));
}

void Win32Form::FocusByKey(HWND control) {
  FocusOn(control);
  if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
    SendMessageW(control, EM_SETSEL, 0, -1);
}

void Win32Form::FocusOnFieldOf(const ControlWindow& label) {
  bool afterLabel = false;
  for (const auto& control : controls_) {
    if (afterLabel && IsTabStop(control->Window())) return FocusByKey(control->Window());
    afterLabel = afterLabel || control.get() == &label;
  }
}

void Win32Form::FocusOnFirstOf(HWND panel) {
  for (const auto& control : controls_)
    if (GetParent(control->Window()) == panel && IsTabStop(control->Window()))
      return FocusByKey(control->Window());
  FocusOn(tabStrip_->Window());
}

void Win32Form::MoveFocusFrom(HWND window) {
  HWND focus = GetFocus();
  if (focus == nullptr || (focus != window && !IsChild(window, focus))) return;
  // The next tab stop outside the window.
  HWND next = focus;
  do {
    next = GetNextDlgTabItem(window_, next, FALSE);
  } while (next != nullptr && next != focus && (next == window || IsChild(window, next)));
  if (next != nullptr && next != focus) ::SetFocus(next);
}

void Win32Form::RestoreFocus() {
  HWND control = IsChild(window_, lastFocus_) && IsReachable(lastFocus_)
                     ? lastFocus_
                     : GetNextDlgTabItem(window_, nullptr, FALSE);
  if (control != nullptr) ::SetFocus(control);
}

}  // namespace tarvik::ui
