#include "platform/processes.h"

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

class Win32Processes final : public Processes {
 public:
  uint32_t Shell(const std::wstring& commandLine, StartWindow window, const std::wstring& program) override {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = window == StartWindow::Hidden ? SW_HIDE : SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    // CreateProcessW may modify the command line.
    std::wstring writable = commandLine;
    // By default the program would inherit this process' error mode, which hides Windows' error boxes.
    if (!::CreateProcessW(program.empty() ? nullptr : program.c_str(), writable.data(), nullptr, nullptr,
                          FALSE, CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup, &process))
      return 0;
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return process.dwProcessId;
  }
  Handle OpenProcess(uint32_t access, uint32_t processId) override {
    return reinterpret_cast<Handle>(::OpenProcess(access, FALSE, processId));
  }
  bool GetExitCodeProcess(Handle process, uint32_t& code) override {
    DWORD exitCode = 0;
    if (!::GetExitCodeProcess(reinterpret_cast<HANDLE>(process), &exitCode)) return false;
    code = exitCode;
    return true;
  }
  bool CloseHandle(Handle handle) override { return ::CloseHandle(reinterpret_cast<HANDLE>(handle)) != 0; }
};

}  // namespace

std::unique_ptr<Processes> MakeProcesses() { return std::make_unique<Win32Processes>(); }

}  // namespace tarvik
