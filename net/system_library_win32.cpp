#include "net/system_library_win32.h"

#include <string>

#ifndef LOAD_LIBRARY_SEARCH_SYSTEM32
#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x00000800
#endif

namespace tarvik {

SystemLibrary::~SystemLibrary() { Free(); }

void SystemLibrary::Free() {
  if (module_ != nullptr) ::FreeLibrary(module_);
  module_ = nullptr;
}

bool SystemLibrary::Load(const wchar_t* name) {
  Free();
  module_ = ::LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module_ == nullptr && ::GetLastError() == ERROR_INVALID_PARAMETER) {
    // Windows 7 without its update KB2533623 does not know the flag.
    wchar_t folder[MAX_PATH] = {};
    const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
    if (length > 0 && length < MAX_PATH) {
      const std::wstring path = std::wstring(folder, length) + L"\\" + name;
      module_ = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    }
  }
  return module_ != nullptr;
}

}  // namespace tarvik
