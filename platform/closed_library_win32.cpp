#include "platform/closed_library_win32.h"

#include "platform/error_line_win32.h"
#include "platform/library_error.h"
#include "platform/search_path_win32.h"
#include "platform/text.h"

namespace tarvik {

ClosedLibrary::~ClosedLibrary() {
  if (module_ != nullptr) ::FreeLibrary(module_);
}

bool ClosedLibrary::Available() {
  if (module_ != nullptr) return true;
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = SearchStandardFolders(name_.c_str(), path.data(), static_cast<DWORD>(path.size()))) >
         path.size())
    path.resize(length);
  path.resize(length);
  // With this flag Windows looks for the library's own dependencies in the library's folder first, not in
  // ours.
  if (length != 0) module_ = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  error_ = module_ == nullptr ? ::GetLastError() : ERROR_SUCCESS;
  return module_ != nullptr;
}

FARPROC ClosedLibrary::Find(const char* call) {
  if (!Available()) throw LibraryError::CannotBeLoaded(name_, ErrorLine(error_, name_));
  const FARPROC found = ::GetProcAddress(module_, call);
  if (found == nullptr) throw LibraryError::DoesNotExport(name_, WidenAscii(call));
  return found;
}

}  // namespace tarvik
