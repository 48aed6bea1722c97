#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"
#include "ui/control.h"
#include "ui/win32/event_boundary_win32.h"

namespace tarvik::ui {

class MeasuredFont;
class Win32Form;

/// The window class and styles of a control.
struct WindowKind {
  const wchar_t* windowClass;
  DWORD style;
  DWORD extendedStyle;

  WindowKind(const wchar_t* name, DWORD ownStyle, DWORD extended = 0)
      : windowClass(name),
        style(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | ownStyle),
        extendedStyle(extended) {}
};

/// The window of a control: what all kinds share, and how the form talks to them. The window is created later
/// than the object, which stores text, style and position until then. The form's window is its parent and
/// destroys it; the object outlives it.
class ControlWindow {
 public:
  /// `page`: the page that the control is on, or kNoPage.
  ControlWindow(Win32Form& form, int page, int id, const WindowKind& kind)
      : form_(form), kind_(kind), page_(page), id_(id) {}
  virtual ~ControlWindow() = default;
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  /// Creates the window from the stored state. Throws RuntimeError when CreateWindowEx fails.
  void Create(HWND parent);

  /// Null until it is created.
  HWND Window() const { return window_; }
  int Page() const { return page_; }
  int Id() const { return id_; }

  /// Switches to the form's current font and scaling.
  virtual void ApplyFont();
  /// Moves the window to its stored position, if any. Positions are only stored until the form is first
  /// shown, because it is laid out several times before that.
  virtual void ApplyPlace();
  /// A WM_COMMAND notification from this control.
  virtual void OnCommand(WORD) {}
  /// A WM_NOTIFY notification from this control.
  virtual void OnNotify(const NMHDR&) {}
  /// Describes the control to screen readers. Called once, shortly after the form appears.
  virtual void Annotate() {}
  /// The pointer moves over the window.
  virtual void OnPointerOver() {}
  /// Called before the user moves the focus to another control; false keeps it here.
  virtual bool Validate() { return true; }
  /// False when the focus may move here without a call of Validate on the control that has it.
  virtual bool CausesValidation() const { return true; }
  /// True when pressing a mouse button at that point, in client coordinates, moves the focus here.
  virtual bool AcceptsFocusAt(POINT) const { return true; }
  /// True when the upper-case letter is a mnemonic of this control.
  virtual bool HasMnemonic(wchar_t) const { return false; }
  /// The user pressed that mnemonic.
  virtual void OnMnemonic(wchar_t) {}

 protected:
  /// The window has been created; its font is not set yet.
  virtual void OnCreated() {}
  void SetFont(const MeasuredFont& font);
  /// Routes the messages of `window`, which is the control's window or a child of it, to OnMessage. Only one
  /// window of a control can be subclassed.
  void Subclass(HWND window);
  /// A message of the subclassed window. Must not throw.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return CallOriginal(message, wParam, lParam);
  }
  LRESULT CallOriginal(UINT message, WPARAM wParam, LPARAM lParam) const;
  HWND SubclassedWindow() const { return subclassed_; }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  std::wstring WindowText() const;
  void SetWindowCaption(const std::wstring& text);
  void ShowOrHide(bool show);
  bool IsShown() const { return (Style() & WS_VISIBLE) != 0; }
  void EnableOrDisable(bool enable);
  bool IsEnabled() const { return (Style() & WS_DISABLED) == 0; }
  bool IsCreated() const { return window_ != nullptr; }
  void TakeFocus();
  bool OwnsFocus() const;
  /// Moves the window now, or stores the position until the form is first shown.
  void PlaceAt(const Rect& bounds);
  /// Moves the window now.
  void Move(const Rect& bounds);
  Rect Place() const;
  DWORD Style() const {
    return IsCreated() ? static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)) : kind_.style;
  }

  /// Calls the program's handler, if it is set, inside the event boundary.
  template <typename Handler, typename... Arguments>
  void Raise(const Handler& handler, Arguments&&... arguments) const noexcept {
    if (handler) RunHandler(form_, [&] { handler(arguments...); });
  }

  Win32Form& form_;

 private:
  static LRESULT CALLBACK SubclassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  WindowKind kind_;  ///< the style is kept up to date until the window exists
  int page_;
  int id_;
  HWND window_ = nullptr;
  std::wstring text_;                 ///< until the window exists
  std::optional<Rect> pendingPlace_;  ///< not applied yet
  std::optional<Rect> knownPlace_;    ///< set by the last move, unless the size may have changed since
  HWND subclassed_ = nullptr;
  WNDPROC original_ = nullptr;
};

/// The sum of the shift states of the keys that are held down (GetKeyState).
int16_t HeldShiftStates();

/// True for the automatic repeats of a key that is held down.
bool IsRepeat(const MSG& message);

/// The letter in upper case, in any script (CharUpperBuff).
wchar_t UpperCase(wchar_t letter);

/// True when the caption's mnemonic is the upper-case letter. "&&" is a literal ampersand.
bool CaptionHasMnemonic(const std::wstring& caption, wchar_t letter);

/// Implements what all kinds of controls share. Base is the interface of one kind.
template <typename Base>
class Win32Control : public Base, public ControlWindow {
 public:
  using ControlWindow::ControlWindow;

  void SetVisible(bool visible) override { ShowOrHide(visible); }
  bool Visible() const override { return IsShown(); }
  void SetEnabled(bool enabled) override { EnableOrDisable(enabled); }
  bool Enabled() const override { return IsEnabled(); }
  void SetFocus() override { TakeFocus(); }
  bool HasFocus() const override { return OwnsFocus(); }
  void SetBounds(const Rect& bounds) override { PlaceAt(bounds); }
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

/// A control whose caption only the program sees; its window shows something else.
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
