#include "lab/windows_check/practice_controller_win32.h"

namespace tarvik::check {

PracticeController::PracticeController(const Kit& kit, int port, const std::string& scenario) {
  // A relative path: the controller could not open one with letters outside the code page.
  const std::wstring name = L"controller_" + std::to_wstring(port) + L".scenario";
  const HANDLE file = CreateFileW((kit.folder + L"\\" + name).c_str(), GENERIC_WRITE, 0, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  WriteFile(file, scenario.data(), static_cast<DWORD>(scenario.size()), &written, nullptr);
  CloseHandle(file);
  // Windows Firewall asks about a program that listens on all addresses, and its question takes the
  // foreground.
  std::wstring commandLine = L"\"" + kit.bench + L"\\practice_controller.exe\" --address 127.0.0.1 --port " +
                             std::to_wstring(port) + L" " + name;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                      kit.folder.c_str(), &startup, &information))
    ThrowStartError("the simulated controller", GetLastError());
  CloseHandle(information.hThread);
  process_ = information.hProcess;
  EndWithThisCheck(process_);
}

PracticeController::~PracticeController() {
  TerminateProcess(process_, 0);
  // Its files can be deleted only after its end.
  WaitForSingleObject(process_, 5000);
  CloseHandle(process_);
}

}  // namespace tarvik::check
