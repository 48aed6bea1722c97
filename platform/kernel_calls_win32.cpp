#include "platform/kernel_calls_win32.h"

#include <bit>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

uint32_t Win32KernelCalls::SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) {
  return ::SearchPathW(nullptr, fileName, nullptr, size, buffer, nullptr);
}

KernelCalls::Module Win32KernelCalls::LoadLibraryExA(const char* fileName, uint32_t flags) {
  // From system32 only: by its bare name a file planted beside the program would be taken.
  char folder[MAX_PATH] = {};
  const UINT length = ::GetSystemDirectoryA(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return 0;
  const std::string path = std::string(folder, length) + "\\" + fileName;
  return std::bit_cast<Module>(::LoadLibraryExA(path.c_str(), nullptr, flags));
}

int32_t Win32KernelCalls::FreeLibrary(Module module) { return ::FreeLibrary(std::bit_cast<HMODULE>(module)); }

uint32_t Win32KernelCalls::FormatMessageA(uint32_t flags, Module module, uint32_t messageId,
                                          uint32_t languageId, char* buffer, uint32_t size) {
  return ::FormatMessageA(flags, std::bit_cast<HMODULE>(module), messageId, languageId, buffer, size,
                          nullptr);
}

uint32_t Win32KernelCalls::GetLastError() { return ::GetLastError(); }

}  // namespace tarvik
