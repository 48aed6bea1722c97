#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvik {

/// How the first window of a started program comes up.
enum class StartWindow { Hidden, NormalFocused };

/// Starting and watching other programs (kernel32).
class Processes {
 public:
  /// A process handle; 0 = none.
  using Handle = std::intptr_t;
  static constexpr uint32_t kQueryInformation = 0x0400;

  virtual ~Processes() = default;

  /// Starts the command line through the system's ordinary search for executables. The process id; 0 when
  /// nothing could be started.
  virtual uint32_t Shell(const std::wstring& commandLine, StartWindow window) = 0;

  virtual Handle OpenProcess(uint32_t access, uint32_t processId) = 0;

  /// False when the code cannot be read. A process that still runs has the code 259.
  virtual bool GetExitCodeProcess(Handle process, uint32_t& code) = 0;

  virtual bool CloseHandle(Handle handle) = 0;
};

/// The processes of this PC (kernel32).
std::unique_ptr<Processes> MakeProcesses();

}  // namespace tarvik
