#include "about/system_information.h"

#include <string>

namespace tarvik {
namespace {

std::wstring PathOfTool(System& system) {
  const auto tool = system.ReadMachineRegistry(L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH");
  if (tool && !tool->empty()) return *tool;
  const auto folder = system.ReadMachineRegistry(L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO");
  return folder && !folder->empty() ? *folder + L"\\MSINFO32.EXE" : std::wstring();
}

}  // namespace

void StartSysInfo(System& system, Processes& processes, report::MessageBoxes& boxes) {
  const std::wstring path = PathOfTool(system);
  // Unquoted, "C:\Program Files\..." would first be tried as a program named "C:\Program".
  const std::wstring commandLine = path.starts_with(L'"') ? path : L"\"" + path + L"\"";
  if (path.empty() || processes.Shell(commandLine, StartWindow::NormalFocused, {}) == 0)
    boxes.Show(L"Cannot display the system information");
}

}  // namespace tarvik
