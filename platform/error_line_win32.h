#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// "ERROR: ", the number, " - " and Windows' own text for the error, in the language of Windows. Some of
/// these texts name a file: that is `subject`. Only the number for an error without a text.
std::wstring ErrorLine(DWORD error, const std::wstring& subject);

}  // namespace tarvik
