#include "platform/processes_win32.h"

#include "platform/windows_win32.h"

namespace tarvik {

uint32_t Win32Processes::Shell(const std::wstring& commandLine, StartWindow window) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = window == StartWindow::Hidden ? SW_HIDE : SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  // CreateProcess may write into the command line.
  std::wstring writable = commandLine;
  if (!::CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
    return 0;
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return process.dwProcessId;
}

Processes::Handle Win32Processes::OpenProcess(uint32_t access, uint32_t processId) {
  return reinterpret_cast<Handle>(::OpenProcess(access, FALSE, processId));
}

bool Win32Processes::GetExitCodeProcess(Handle process, uint32_t& code) {
  DWORD exitCode = 0;
  if (!::GetExitCodeProcess(reinterpret_cast<HANDLE>(process), &exitCode)) return false;
  code = exitCode;
  return true;
}

bool Win32Processes::CloseHandle(Handle handle) {
  return ::CloseHandle(reinterpret_cast<HANDLE>(handle)) != 0;
}

}  // namespace tarvik
