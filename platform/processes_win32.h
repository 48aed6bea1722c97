#pragma once

#include "platform/processes.h"

namespace tarvik {

/// Processes through kernel32.
class Win32Processes final : public Processes {
 public:
  uint32_t Shell(const std::wstring& commandLine, StartWindow window) override;
  Handle OpenProcess(uint32_t access, uint32_t processId) override;
  bool GetExitCodeProcess(Handle process, uint32_t& code) override;
  bool CloseHandle(Handle handle) override;
};

}  // namespace tarvik
