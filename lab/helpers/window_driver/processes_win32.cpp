// Starting, watching and measuring processes.

#include <algorithm>
#include <memory>

#include "lab/helpers/window_driver/driver_win32.h"
// After windows.h.
#include <psapi.h>

namespace tarvik::lab {
namespace {

/// A process that the driver started; terminated with the driver.
class StartedProcess {
 public:
  StartedProcess(HANDLE handle, DWORD id, double startedAt)
      : handle_(handle), id_(id), startedAt_(startedAt) {}
  StartedProcess(const StartedProcess&) = delete;
  StartedProcess& operator=(const StartedProcess&) = delete;
  ~StartedProcess() {
    if (IsRunning()) TerminateProcess(handle_, 1);
    CloseHandle(handle_);
  }

  bool IsRunning() const { return WaitForSingleObject(handle_, 0) == WAIT_TIMEOUT; }
  HANDLE Handle() const { return handle_; }
  DWORD Id() const { return id_; }
  double StartedAt() const { return startedAt_; }

 private:
  HANDLE handle_;
  DWORD id_;
  double startedAt_;
};

std::vector<std::unique_ptr<StartedProcess>>& StartedProcesses() {
  static std::vector<std::unique_ptr<StartedProcess>> started;
  return started;
}

StartedProcess& Find(const Arguments& arguments) {
  for (const auto& process : StartedProcesses()) {
    if (process->Id() == static_cast<DWORD>(arguments.Number(0))) return *process;
  }
  throw CommandError("this driver did not start the process");
}

DWORD ExitCode(const StartedProcess& process) {
  DWORD code = 0;
  GetExitCodeProcess(process.Handle(), &code);
  return code;
}

/// start <program> <raw command line after the program's name> <working folder> -> process id
Fields Start(const Arguments& arguments) {
  const std::wstring program = arguments.Text(0);
  std::wstring commandLine = L"\"" + program + L"\"";
  if (!arguments.Text(1).empty()) commandLine += L" " + arguments.Text(1);
  const std::wstring folder = arguments.Text(2);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  // No standard handles: output of the program or its children would mix with the driver's answers.
  startup.dwFlags = STARTF_USESTDHANDLES;
  PROCESS_INFORMATION information{};
  const double startedAt = PreciseMilliseconds();
  if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      folder.empty() ? nullptr : folder.c_str(), &startup, &information)) {
    throw CommandError("cannot start: error " + NumberText(GetLastError()));
  }
  CloseHandle(information.hThread);
  StartedProcesses().push_back(
      std::make_unique<StartedProcess>(information.hProcess, information.dwProcessId, startedAt));
  return {NumberText(information.dwProcessId)};
}

/// wait_idle <process> <time-out> -> milliseconds from the start until the process is idle for the first time
Fields WaitIdle(const Arguments& arguments) {
  const StartedProcess& process = Find(arguments);
  // WaitForInputIdle fails until the new process has made its first window call.
  WaitClosely(arguments.Number(1), "first idle", [&process] {
    if (!process.IsRunning())
      throw CommandError("the process ended with code " + NumberText(ExitCode(process)));
    return WaitForInputIdle(process.Handle(), 50) == 0;
  });
  return {MillisecondsText(PreciseMilliseconds() - process.StartedAt())};
}

/// wait_end <process> <time-out> -> exit code
Fields WaitEnd(const Arguments& arguments) {
  const StartedProcess& process = Find(arguments);
  if (WaitForSingleObject(process.Handle(), static_cast<DWORD>(arguments.Number(1))) != WAIT_OBJECT_0) {
    throw CommandError("timed out: end of the process");
  }
  return {NumberText(ExitCode(process))};
}

/// adopt <process>: from now on the process is treated as if the driver had started it
Fields Adopt(const Arguments& arguments) {
  const auto id = static_cast<DWORD>(arguments.Number(0));
  const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, id);
  if (process == nullptr) throw CommandError("cannot open the process: error " + NumberText(GetLastError()));
  StartedProcesses().push_back(std::make_unique<StartedProcess>(process, id, PreciseMilliseconds()));
  return {};
}

/// kill <process>
Fields Kill(const Arguments& arguments) {
  const StartedProcess& process = Find(arguments);
  TerminateProcess(process.Handle(), 1);
  WaitForSingleObject(process.Handle(), 10000);
  return {};
}

/// memory <process> -> working set, committed private bytes
Fields Memory(const Arguments& arguments) {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  if (!K32GetProcessMemoryInfo(Find(arguments).Handle(), &counters, sizeof counters)) {
    throw CommandError("error " + NumberText(GetLastError()));
  }
  return {NumberText(static_cast<int64_t>(counters.WorkingSetSize)),
          NumberText(static_cast<int64_t>(counters.PagefileUsage))};
}

/// SYSTEM_HANDLE_TABLE_ENTRY_INFO_EX. Only the owning process is used.
struct HandleEntry {
  void* object;
  ULONG_PTR process;
  ULONG_PTR handle;
  ULONG rest[4];
};

/// The system's table of all handles: their number, a reserved word, then the entries.
std::vector<ULONG_PTR> HandleTable() {
  using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
  constexpr int kExtendedHandleInformation = 64;
  constexpr auto kTooSmall = static_cast<LONG>(0xC0000004);
  const auto address = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation");
  const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(address));
  std::vector<ULONG_PTR> table(0x10000);
  LONG result = kTooSmall;
  while (result == kTooSmall && table.size() < 0x1000000) {
    table.resize(2 * table.size());
    const auto size = static_cast<ULONG>(table.size() * sizeof(ULONG_PTR));
    result = query(kExtendedHandleInformation, table.data(), size, nullptr);
  }
  if (result < 0) throw CommandError("cannot read the handle table: status " + NumberText(result));
  return table;
}

/// handles <process> -> number of kernel handles. Counted in the system's table, because Wine's
/// GetProcessHandleCount returns 0.
Fields Handles(const Arguments& arguments) {
  const ULONG_PTR process = Find(arguments).Id();
  const std::vector<ULONG_PTR> table = HandleTable();
  const auto* const entries = reinterpret_cast<const HandleEntry*>(table.data() + 2);
  const auto count = std::count_if(entries, entries + table[0],
                                   [process](const HandleEntry& entry) { return entry.process == process; });
  return {NumberText(count)};
}

}  // namespace

void AddProcessCommands() {
  AddCommand("start", Start);
  AddCommand("adopt", Adopt);
  AddCommand("wait_idle", WaitIdle);
  AddCommand("wait_end", WaitEnd);
  AddCommand("runs", [](const Arguments& a) { return Fields{Find(a).IsRunning() ? "1" : "0"}; });
  AddCommand("kill", Kill);
  AddCommand("memory", Memory);
  AddCommand("handles", Handles);
}

}  // namespace tarvik::lab
