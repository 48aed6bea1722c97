#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// "ERROR: <number> - <text>" with Windows' text for the error (FormatMessage), in the language of Windows.
/// `subject` replaces the placeholder %1 of a text that names a file. An unknown error has an empty text.
std::wstring ErrorLine(DWORD error, const std::wstring& subject);

}  // namespace tarvik
