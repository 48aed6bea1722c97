#pragma once

#include "platform/windows_win32.h"
#include "report/message_boxes.h"

namespace tarvik::ui {

/// Shows the exception that is being handled in the standard error dialog, over the window if that is shown.
void ReportException(HWND owner) noexcept;

/// Runs a handler of the program on behalf of a window procedure, which no exception may pass.
template <typename Action>
void RunGuarded(HWND owner, const Action& action) noexcept {
  try {
    action();
  } catch (...) {
    ReportException(owner);
  }
}

/// Throws RuntimeError with the sentence and the number of the system's last error.
[[noreturn]] void ThrowRefusal(const wchar_t* sentence);

}  // namespace tarvik::ui
