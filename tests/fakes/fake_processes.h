#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/processes.h"

namespace tarvik::test {

/// Starts nothing; records the command lines.
class FakeProcesses final : public Processes {
 public:
  static constexpr uint32_t kStillActive = 259;

  uint32_t Shell(const std::wstring& commandLine, StartWindow window, const std::wstring& program) override {
    programs.push_back(program);
    commandLines.push_back(commandLine);
    windows.push_back(window);
    if (processId != 0 && onStart) onStart();
    return processId;
  }
  Handle OpenProcess(uint32_t access, uint32_t id) override {
    openedAccess = access;
    openedId = id;
    if (handle != 0) openHandles.insert(handle);
    return handle;
  }
  bool GetExitCodeProcess(Handle process, uint32_t& code) override {
    ++polls;
    if (onPoll) onPoll();
    if (!openHandles.contains(process) || !exitCodeReadable) return false;
    code = polls > runningPolls ? exitCode : kStillActive;
    return true;
  }
  bool CloseHandle(Handle closed) override { return openHandles.erase(closed) != 0; }

  uint32_t processId = 4711;  ///< of started programs; 0 = starting fails
  Handle handle = 0x88;       ///< 0 = the process cannot be opened
  int runningPolls = 0;       ///< number of polls that find the process running
  uint32_t exitCode = 0;
  bool exitCodeReadable = true;
  std::function<void()> onStart;  ///< what the started process does
  std::function<void()> onPoll;

  std::vector<std::wstring> commandLines;
  std::vector<std::wstring> programs;
  std::vector<StartWindow> windows;
  uint32_t openedAccess = 0;
  uint32_t openedId = 0;
  int polls = 0;
  std::set<Handle> openHandles;  ///< not closed yet
};

}  // namespace tarvik::test
