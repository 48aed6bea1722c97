#include "ui/win32/control_window_win32.h"

#include "ui/win32/form_win32.h"

namespace tarvik::ui {

void ControlWindow::Create(HWND parent) {
  const Rect at = pendingPlace_.value_or(Rect{});
  window_ = CreateWindowExW(kind_.extendedStyle, kind_.windowClass, text_.c_str(), kind_.style, at.x, at.y,
                            at.width, at.height, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id_)),
                            GetModuleHandleW(nullptr), nullptr);
  if (window_ == nullptr) ThrowLastError(L"A control could not be created.");
  pendingPlace_.reset();
  text_.clear();
  form_.DpiScaling().KeepControlUnscaled(window_);
  OnCreated();
  ApplyFont();
}

void ControlWindow::ApplyFont() { SetFont(form_.Font()); }

void ControlWindow::SetFont(const MeasuredFont& font) {
  knownPlace_.reset();  // combo boxes, for example, change their height with their font
  if (IsCreated()) Send(WM_SETFONT, reinterpret_cast<WPARAM>(font.Handle()), FALSE);
}

void ControlWindow::Subclass(HWND window) {
  subclassed_ = window;
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  original_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlWindow::SubclassProcedure)));
}

LRESULT ControlWindow::CallOriginal(UINT message, WPARAM wParam, LPARAM lParam) const {
  return CallWindowProcW(original_, subclassed_, message, wParam, lParam);
}

LRESULT CALLBACK ControlWindow::SubclassProcedure(HWND window, UINT message, WPARAM wParam,
                                                  LPARAM lParam) noexcept {
  auto* control = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return control->OnMessage(message, wParam, lParam);
}

std::wstring ControlWindow::WindowText() const {
  if (!IsCreated()) return text_;
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window_)), L'\0');
  // The length is only an upper bound, and the text may change between the two calls.
  const int copied = GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1);
  text.resize(static_cast<size_t>(copied));
  return text;
}

void ControlWindow::SetWindowCaption(const std::wstring& text) {
  if (text == WindowText()) return;
  if (!IsCreated())
    text_ = text;
  else if (!SetWindowTextW(window_, text.c_str()))
    ThrowLastError(L"The text of a control could not be set.");
}

void ControlWindow::ShowOrHide(bool show) {
  if (!IsCreated()) {
    kind_.style = show ? kind_.style | WS_VISIBLE : kind_.style & ~DWORD{WS_VISIBLE};
    return;
  }
  if (!show) form_.MoveFocusFrom(window_);
  ShowWindow(window_, show ? SW_SHOWNA : SW_HIDE);
}

void ControlWindow::EnableOrDisable(bool enable) {
  if (!IsCreated()) {
    kind_.style = enable ? kind_.style & ~DWORD{WS_DISABLED} : kind_.style | WS_DISABLED;
    return;
  }
  if (!enable) form_.MoveFocusFrom(window_);
  EnableWindow(window_, enable);
}

void ControlWindow::TakeFocus() { form_.FocusOn(window_); }

bool ControlWindow::OwnsFocus() const { return form_.FocusIsIn(window_); }

void ControlWindow::PlaceAt(const Rect& bounds) {
  pendingPlace_ = bounds;
  if (form_.EverShown()) ApplyPlace();
}

void ControlWindow::ApplyPlace() {
  if (!pendingPlace_ || !IsCreated()) return;
  Move(*pendingPlace_);
  pendingPlace_.reset();
}

void ControlWindow::Move(const Rect& bounds) {
  if (knownPlace_ == bounds) return;
  if (!SetWindowPos(window_, nullptr, bounds.x, bounds.y, bounds.width, bounds.height,
                    SWP_NOZORDER | SWP_NOACTIVATE))
    ThrowLastError(L"A control could not be moved.");
  knownPlace_ = bounds;
}

Rect ControlWindow::Place() const {
  if (pendingPlace_) return *pendingPlace_;
  RECT box{};
  GetWindowRect(window_, &box);
  MapWindowPoints(nullptr, GetParent(window_), reinterpret_cast<POINT*>(&box), 2);
  return {static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.right - box.left),
          static_cast<int>(box.bottom - box.top)};
}

int16_t HeldShiftStates() {
  const auto held = [](int key, int16_t state) { return GetKeyState(key) < 0 ? state : int16_t{0}; };
  return static_cast<int16_t>(held(VK_SHIFT, kShiftHeld) + held(VK_CONTROL, kCtrlHeld) +
                              held(VK_MENU, kAltHeld));
}

bool IsRepeat(const MSG& message) { return (HIWORD(message.lParam) & KF_REPEAT) != 0; }

bool CaptionHasMnemonic(const std::wstring& caption, wchar_t letter) {
  for (size_t at = caption.find(L'&'); at != std::wstring::npos && at + 1 < caption.size();
       at = caption.find(L'&', at + 2)) {
    const wchar_t mnemonic = caption[at + 1];
    if (mnemonic != L'&') return UpperCase(mnemonic) == letter;
  }
  return false;
}

wchar_t UpperCase(wchar_t letter) {
  CharUpperBuffW(&letter, 1);
  return letter;
}

}  // namespace tarvik::ui
