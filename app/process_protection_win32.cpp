#include "app/process_protection_win32.h"

#include <cstdlib>

#include "platform/windows_win32.h"

namespace tarvik {

void ProtectProcess() {
  // When a library call blocks for five seconds, Windows replaces the window by a ghost. Closing the ghost
  // would end the program and lose the result.
  ::DisableProcessWindowsGhosting();
  // The program reports failures itself; Windows' boxes about bad images and empty drives would stop a run.
  ::SetErrorMode(SEM_FAILCRITICALERRORS);
  // The current folder may be one to which others write, such as a share or a removable drive.
  ::SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  ::SetDllDirectoryW(L"");
  // Stops CreateProcess, and the command interpreters that inherit it, from searching the current folder.
  // Only its existence counts, not its value.
  ::SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
}

}  // namespace tarvik

/// Replaces the C library's abort, which shows a message box and leaves no crash report. std::terminate also
/// calls it.
extern "C" void abort() {
  ::RaiseFailFastException(nullptr, nullptr, FAIL_FAST_GENERATE_EXCEPTION_ADDRESS);
  __builtin_trap();
}
