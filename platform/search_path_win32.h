#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// The folder of the running program, without a backslash at the end.
std::wstring ProgramFolder();

/// SearchPathW on the standard search path, but never in the current folder. Looks for the file in the
/// program's folder, the folders of Windows and those of PATH. Same result as SearchPathW.
DWORD SearchStandardFolders(const wchar_t* fileName, wchar_t* buffer, DWORD size);

}  // namespace tarvik
