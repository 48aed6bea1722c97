#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvik {

/// The initial state of a started program's first window.
enum class StartWindow { Hidden, NormalFocused };

/// Starts other programs and queries their exit codes.
class Processes {
 public:
  /// A process handle; 0 is invalid.
  using Handle = std::intptr_t;
  static constexpr uint32_t kQueryInformation = 0x0400;  ///< PROCESS_QUERY_INFORMATION

  virtual ~Processes() = default;

  /// Starts the command line. `program`: the program's full path; empty = the usual search of CreateProcess
  /// for the first word of the command line, but never in the current folder. Returns the process id, or 0
  /// when the program could not be started.
  virtual uint32_t Shell(const std::wstring& commandLine, StartWindow window,
                         const std::wstring& program) = 0;

  /// Returns 0 on failure.
  virtual Handle OpenProcess(uint32_t access, uint32_t processId) = 0;

  /// False on failure, which leaves `code` unchanged. A running process has the code 259 (STILL_ACTIVE).
  virtual bool GetExitCodeProcess(Handle process, uint32_t& code) = 0;

  /// False on failure.
  virtual bool CloseHandle(Handle handle) = 0;
};

/// The processes of this PC (kernel32).
std::unique_ptr<Processes> MakeProcesses();

}  // namespace tarvik
