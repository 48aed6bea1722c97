#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"
#include "ui/control.h"
#include "ui/win32/event_boundary_win32.h"

namespace tarvik::ui {

class Win32Form;

/// How a control's window is made.
struct WindowKind {
  const wchar_t* windowClass;
  DWORD style;
  DWORD extendedStyle;

  WindowKind(const wchar_t* name, DWORD ownStyle, DWORD extended = 0)
      : windowClass(name),
        style(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | ownStyle),
        extendedStyle(extended) {}
};

/// The window of a control: what all kinds share, and what the form asks of each. The window is made some
/// time after the object; until then the object remembers what it is told. The form's window owns it and
/// destroys it; the object outlives it.
class ControlWindow {
 public:
  /// `page`: where the control stands, or kNoPage.
  ControlWindow(Win32Form& form, int page, int id, const WindowKind& kind)
      : form_(form), kind_(kind), page_(page), id_(id) {}
  virtual ~ControlWindow() = default;
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  /// Makes the window as it is to be. Throws RuntimeError when the system refuses.
  void Make(HWND parent);

  /// Null before it is made.
  HWND Window() const { return window_; }
  int Page() const { return page_; }
  int Id() const { return id_; }

  /// Takes the form's present font and scaling.
  virtual void ApplyFont();
  /// The form is shown for the first time: moves the window to where it was placed last. Until then placing
  /// only remembers, for the window is laid out more than once before anybody sees it.
  virtual void ApplyPlace();
  /// A WM_COMMAND notification of this control.
  virtual void OnCommand(WORD) {}
  /// A WM_NOTIFY notification of this control.
  virtual void OnNotify(const NMHDR&) {}
  /// The pointer moves over the window.
  virtual void OnPointerOver() {}
  /// Asked before the user takes the focus to another control; false keeps it.
  virtual bool AgreesToLeave() { return true; }
  /// False when the user may leave any control for this one unasked.
  virtual bool AsksBeforeEntered() const { return true; }
  /// True when a mouse button going down at that place, in the window's coordinates, brings the focus here.
  virtual bool TakesFocusAt(POINT) const { return true; }
  /// True when the letter, in upper case, is a mnemonic of this control.
  virtual bool HasMnemonic(wchar_t) const { return false; }
  /// The user pressed that mnemonic.
  virtual void OnMnemonic(wchar_t) {}

 protected:
  /// The window is there; its font is not yet set.
  virtual void OnMade() {}
  /// From now on the messages of that window, the control's own or a child of it, come to OnMessage.
  void Subclass(HWND window);
  /// A message of the subclassed window. No exception may leave it.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallOriginal(message, wParam, lParam);
  }
  LRESULT CallOriginal(UINT message, WPARAM wParam, LPARAM lParam) const;

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  std::wstring WindowText() const;
  void SetWindowCaption(const std::wstring& text);
  void ShowOrHide(bool show);
  bool IsShown() const { return (Style() & WS_VISIBLE) != 0; }
  void EnableOrDisable(bool enable);
  bool IsOperable() const { return (Style() & WS_DISABLED) == 0; }
  bool IsMade() const { return window_ != nullptr; }
  void TakeFocus();
  bool OwnsFocus() const;
  /// Places the window now, or when the form is first shown.
  void PutAt(const Rect& bounds);
  void Move(const Rect& bounds);
  Rect Place() const;
  DWORD Style() const {
    return IsMade() ? static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)) : kind_.style;
  }

  /// Raises an event of the program, if it listens.
  template <typename Handler, typename... Arguments>
  void Raise(const Handler& handler, Arguments&&... arguments) const noexcept {
    if (handler) RunHandler(form_, [&] { handler(arguments...); });
  }

  Win32Form& form_;

 private:
  static LRESULT CALLBACK SubclassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  WindowKind kind_;  ///< what the window is, or will be, made from
  int page_;
  int id_;
  HWND window_ = nullptr;
  std::wstring text_;          ///< until the window has it
  std::optional<Rect> place_;  ///< not yet applied
  std::optional<Rect> moved_;  ///< where the window was put, if it has stayed there
  HWND subclassed_ = nullptr;
  WNDPROC original_ = nullptr;
};

/// The sum of the shift states that are held now.
int16_t HeldShiftStates();

/// The letter in upper case, in every script that has one.
wchar_t UpperCase(wchar_t letter);

/// True when the caption has the letter, in upper case, as its mnemonic.
bool CaptionHasMnemonic(const std::wstring& caption, wchar_t letter);

/// What every kind of control shares; Base is its interface.
template <typename Base>
class Win32Control : public Base, public ControlWindow {
 public:
  using ControlWindow::ControlWindow;

  void SetVisible(bool visible) override { ShowOrHide(visible); }
  bool Visible() const override { return IsShown(); }
  void SetEnabled(bool enabled) override { EnableOrDisable(enabled); }
  bool Enabled() const override { return IsOperable(); }
  void SetFocus() override { TakeFocus(); }
  bool HasFocus() const override { return OwnsFocus(); }
  void SetBounds(const Rect& bounds) override { PutAt(bounds); }
  Rect Bounds() const override { return Place(); }
};

/// A control whose window shows its caption.
template <typename Base>
class CaptionedControl : public Win32Control<Base> {
 public:
  using Win32Control<Base>::Win32Control;

  void SetCaption(const std::wstring& caption) override { this->SetWindowCaption(caption); }
  std::wstring Caption() const override { return this->WindowText(); }
  bool HasMnemonic(wchar_t letter) const override { return CaptionHasMnemonic(this->WindowText(), letter); }
};

/// A control that has a caption only for the program; its window shows something else.
template <typename Base>
class UncaptionedControl : public Win32Control<Base> {
 public:
  using Win32Control<Base>::Win32Control;

  void SetCaption(const std::wstring& caption) override { caption_ = caption; }
  std::wstring Caption() const override { return caption_; }

 private:
  std::wstring caption_;
};

}  // namespace tarvik::ui
