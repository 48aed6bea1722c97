#include "app/process_protection_win32.h"

#include <cstdlib>

#include "platform/windows_win32.h"

namespace tarvik {

void ProtectProcess() {
  // After five seconds in one library call Windows would show a ghost in place of the window, and closing the
  // ghost would end the program and lose the result.
  ::DisableProcessWindowsGhosting();
  // The program reports failures itself; Windows' boxes about bad images and empty drives would stop a run.
  ::SetErrorMode(SEM_FAILCRITICALERRORS);
  // The current folder may be one to which others write, such as a share or a removable drive.
  ::SetSearchPathMode(BASE_SEARCH_PATH_ENABLE_SAFE_SEARCHMODE | BASE_SEARCH_PATH_PERMANENT);
  ::SetDllDirectoryW(L"");
  // CreateProcess asks only whether the variable exists. So do command interpreters, which inherit it.
  ::SetEnvironmentVariableW(L"NoDefaultCurrentDirectoryInExePath", L"1");
}

}  // namespace tarvik

/// In place of the C library's, which shows a box and leaves no crash report. std::terminate ends here, too.
extern "C" void abort() {
  ::RaiseFailFastException(nullptr, nullptr, FAIL_FAST_GENERATE_EXCEPTION_ADDRESS);
  __builtin_trap();
}
