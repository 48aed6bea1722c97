#pragma once

#include <functional>

#include "platform/windows_win32.h"

namespace tarvik::ui {

class Win32Form;

/// Shows the current exception in a message box, owned by the window if that is visible. For catch blocks.
void ReportException(HWND owner) noexcept;

/// Calls one of the program's handlers from a window procedure, through which no exception may pass. Also
/// reports exceptions that Form::Guarded does not catch, such as std::bad_alloc.
void RunFunction(Win32Form& form, const std::function<void()>& handler) noexcept;

/// The same for any callable, without a copy: memory may be short.
template <typename Handler>
void RunHandler(Win32Form& form, const Handler& handler) noexcept {
  RunFunction(form, std::cref(handler));
}

/// Throws RuntimeError with the sentence, followed by GetLastError() in parentheses unless that is 0.
[[noreturn]] void ThrowLastError(const wchar_t* sentence);

}  // namespace tarvik::ui
