#pragma once

#include "platform/windows_win32.h"

namespace tarvik::ui {

class Win32Form;

/// Handles two keys while a message box is open, when the box sees all messages first: F1 raises onBoxHelp of
/// its form, and Esc closes a window that the handler opened. A hook, because Windows sends WM_HELP only to a
/// visible owner, which the boxes of the start-up do not have.
class BoxKeys {
 public:
  /// `form`: can be null. It and the box's text outlive the object.
  BoxKeys(Win32Form* form, const wchar_t* text) noexcept;
  ~BoxKeys();
  BoxKeys(const BoxKeys&) = delete;
  BoxKeys& operator=(const BoxKeys&) = delete;

 private:
  static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) noexcept;
  bool Handles(MSG& message) const noexcept;

  static const BoxKeys* innermost_;  ///< a hook procedure has no other way to find it
  Win32Form* form_;
  const wchar_t* text_;
  const BoxKeys* outer_;
  HHOOK hook_;
};

}  // namespace tarvik::ui
