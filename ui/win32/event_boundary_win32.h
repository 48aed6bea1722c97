#pragma once

#include <functional>

#include "platform/windows_win32.h"

namespace tarvik::ui {

class Win32Form;

/// Shows the exception that is being handled in a message box, over the window if that is visible.
void ReportException(HWND owner) noexcept;

/// Calls a handler of the form's program on behalf of a window procedure, through which no exception may
/// pass: what the form's own boundary does not handle, such as a lack of memory, is reported too.
void RunHandler(Win32Form& form, const std::function<void()>& handler) noexcept;

/// Throws RuntimeError with the sentence and the number of the system's last error.
[[noreturn]] void ThrowRefusal(const wchar_t* sentence);

}  // namespace tarvik::ui
