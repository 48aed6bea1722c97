#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// "ERROR: ", the number, " - " and Windows' own text for the error, in the language of Windows. Some of
/// these texts name a file: that is `subject`. The text is empty for an error that has none.
std::wstring ErrorLine(DWORD error, const std::wstring& subject);

}  // namespace tarvik
