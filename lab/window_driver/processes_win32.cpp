#include <memory>

#include "lab/window_driver/driver_win32.h"
// After windows.h.
#include <psapi.h>

namespace tarvik::lab {
namespace {

/// A process that the driver started; it ends with the driver.
class StartedProcess {
 public:
  StartedProcess(HANDLE handle, DWORD id, double startedAt)
      : handle_(handle), id_(id), startedAt_(startedAt) {}
  StartedProcess(const StartedProcess&) = delete;
  StartedProcess& operator=(const StartedProcess&) = delete;
  ~StartedProcess() {
    if (Runs()) TerminateProcess(handle_, 1);
    CloseHandle(handle_);
  }

  bool Runs() const { return WaitForSingleObject(handle_, 0) == WAIT_TIMEOUT; }
  HANDLE Handle() const { return handle_; }
  DWORD Id() const { return id_; }
  double StartedAt() const { return startedAt_; }

 private:
  HANDLE handle_;
  DWORD id_;
  double startedAt_;
};

std::vector<std::unique_ptr<StartedProcess>>& Started() {
  static std::vector<std::unique_ptr<StartedProcess>> started;
  return started;
}

StartedProcess& Find(const Arguments& arguments) {
  for (const auto& process : Started()) {
    if (process->Id() == static_cast<DWORD>(arguments.Number(0))) return *process;
  }
  throw CommandError("not a process of this driver");
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
  // Nothing that a program or its own children print may come between the driver's answers.
  startup.dwFlags = STARTF_USESTDHANDLES;
  PROCESS_INFORMATION information{};
  const double startedAt = PreciseMilliseconds();
  if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      folder.empty() ? nullptr : folder.c_str(), &startup, &information)) {
    throw CommandError("cannot start: error " + NumberText(GetLastError()));
  }
  CloseHandle(information.hThread);
  Started().push_back(
      std::make_unique<StartedProcess>(information.hProcess, information.dwProcessId, startedAt));
  return {NumberText(information.dwProcessId)};
}

/// wait_idle <process> <time-out> -> milliseconds from the start to the first idle
Fields WaitIdle(const Arguments& arguments) {
  const StartedProcess& process = Find(arguments);
  // Until the new process has made its first window call there is nothing to wait on.
  WaitFor(
      arguments.Number(1), "first idle",
      [&process] {
        if (!process.Runs()) throw CommandError("ended with " + NumberText(ExitCode(process)));
        return WaitForInputIdle(process.Handle(), 50) == 0;
      },
      1);
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

/// kill <process>
Fields Kill(const Arguments& arguments) {
  const StartedProcess& process = Find(arguments);
  TerminateProcess(process.Handle(), 1);
  WaitForSingleObject(process.Handle(), 10000);
  return {};
}

/// memory <process> -> bytes in memory, bytes of its own
Fields Memory(const Arguments& arguments) {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  if (!K32GetProcessMemoryInfo(Find(arguments).Handle(), &counters, sizeof counters)) {
    throw CommandError("error " + NumberText(GetLastError()));
  }
  return {NumberText(static_cast<int64_t>(counters.WorkingSetSize)),
          NumberText(static_cast<int64_t>(counters.PagefileUsage))};
}

}  // namespace

void AddProcessCommands() {
  AddCommand("start", Start);
  AddCommand("wait_idle", WaitIdle);
  AddCommand("wait_end", WaitEnd);
  AddCommand("runs", [](const Arguments& a) { return Fields{Find(a).Runs() ? "1" : "0"}; });
  AddCommand("kill", Kill);
  AddCommand("memory", Memory);
}

}  // namespace tarvik::lab
