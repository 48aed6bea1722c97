#include "ui/win32/system_library_win32.h"

#include <string>

namespace tarvik::ui {
namespace {

HMODULE LoadByFullPath(const wchar_t* name) {
  wchar_t folder[MAX_PATH];
  const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return nullptr;
  return LoadLibraryW((std::wstring(folder, length) + L"\\" + name).c_str());
}

/// A Windows 7 without its loader update does not know the flag, and says so by this error.
bool FlagIsUnknown() { return GetLastError() == ERROR_INVALID_PARAMETER; }

}  // namespace

SystemLibrary SystemLibrary::FromSystemFolder(const wchar_t* name) {
  HMODULE module = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (module == nullptr && FlagIsUnknown()) module = LoadByFullPath(name);
  return SystemLibrary(module);
}

SystemLibrary SystemLibrary::FromManifest(const wchar_t* name) {
  HMODULE module = LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  // By its bare name: the manifest's redirection comes before any folder, and a full path would evade it.
  if (module == nullptr && FlagIsUnknown()) module = LoadLibraryW(name);
  return SystemLibrary(module);
}

SystemLibrary::~SystemLibrary() {
  if (module_ != nullptr) FreeLibrary(module_);
}

}  // namespace tarvik::ui
