#include "platform/closed_library_win32.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik {

ClosedLibrary::~ClosedLibrary() {
  if (module_ != nullptr) ::FreeLibrary(module_);
}

bool ClosedLibrary::Available() {
  if (module_ != nullptr) return true;
  std::wstring path(MAX_PATH, L'\0');
  const DWORD length =
      ::SearchPathW(nullptr, name_.c_str(), nullptr, static_cast<DWORD>(path.size()), path.data(), nullptr);
  if (length == 0 || length >= path.size()) return false;
  path.resize(length);
  // The library's own folder serves for the libraries that it needs itself.
  module_ = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  return module_ != nullptr;
}

FARPROC ClosedLibrary::Find(const char* call) {
  if (!Available()) throw RuntimeError(name_ + L" cannot be loaded.");
  const FARPROC found = ::GetProcAddress(module_, call);
  if (found == nullptr) throw RuntimeError(name_ + L" has no call " + WidenAscii(call) + L".");
  return found;
}

}  // namespace tarvik
