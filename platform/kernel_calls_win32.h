#pragma once

#include "platform/kernel_calls.h"

namespace tarvik {

/// The calls of kernel32 on this PC.
class Win32KernelCalls final : public KernelCalls {
 public:
  uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) override;
  Module LoadLibraryExA(const char* fileName, uint32_t flags) override;
  int32_t FreeLibrary(Module module) override;
  uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                          char* buffer, uint32_t size) override;
  uint32_t GetLastError() override;
};

}  // namespace tarvik
