#include "platform/kernel_calls.h"

#include <bit>
#include <string>

#include "platform/search_path_win32.h"
#include "platform/windows_win32.h"

namespace tarvik {
namespace {

class Win32KernelCalls final : public KernelCalls {
 public:
  uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) override {
    return SearchStandardFolders(fileName, buffer, size);
  }
  Module LoadLibraryExA(const char* fileName, uint32_t flags) override {
    // By full path: for a bare name Windows would load a file planted next to the program.
    char folder[MAX_PATH] = {};
    const UINT length = ::GetSystemDirectoryA(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return 0;
    const std::string path = std::string(folder, length) + "\\" + fileName;
    return std::bit_cast<Module>(::LoadLibraryExA(path.c_str(), nullptr, flags));
  }
  int32_t FreeLibrary(Module module) override { return ::FreeLibrary(std::bit_cast<HMODULE>(module)); }
  uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                          char* buffer, uint32_t size) override {
    return ::FormatMessageA(flags, std::bit_cast<HMODULE>(module), messageId, languageId, buffer, size,
                            nullptr);
  }
  uint32_t GetLastError() override { return ::GetLastError(); }
};

}  // namespace

std::unique_ptr<KernelCalls> MakeKernelCalls() { return std::make_unique<Win32KernelCalls>(); }

}  // namespace tarvik
