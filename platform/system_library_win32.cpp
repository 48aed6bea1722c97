#include "platform/system_library_win32.h"

#include <string>

#ifndef LOAD_LIBRARY_SEARCH_SYSTEM32
#define LOAD_LIBRARY_SEARCH_SYSTEM32 0x00000800
#endif

namespace tarvik {
namespace {

/// Windows 7 without update KB2533623 rejects the LOAD_LIBRARY_SEARCH flags with this error.
bool SearchFlagIsUnknown() { return ::GetLastError() == ERROR_INVALID_PARAMETER; }

}  // namespace

bool SystemLibrary::LoadFromSystemFolder(const wchar_t* name) {
  module_ = ::LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  return module_ != nullptr;
}

bool SystemLibrary::Load(const wchar_t* name) {
  if (LoadFromSystemFolder(name)) return true;
  if (!SearchFlagIsUnknown()) return false;
  wchar_t folder[MAX_PATH] = {};
  const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return false;
  const std::wstring path = std::wstring(folder, length) + L"\\" + name;
  module_ = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  return module_ != nullptr;
}

bool SystemLibrary::LoadByManifest(const wchar_t* name) {
  if (LoadFromSystemFolder(name)) return true;
  // By its bare name, because the manifest does not redirect full paths. The redirection precedes every
  // folder, so a file planted next to the program is not loaded.
  if (SearchFlagIsUnknown()) module_ = ::LoadLibraryW(name);
  return module_ != nullptr;
}

}  // namespace tarvik
