#pragma once

#include <bit>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// One of the maker's libraries. It is looked for on the standard search path, and loaded by the full path
/// found there, at its first use.
class ClosedLibrary {
 public:
  explicit ClosedLibrary(const wchar_t* name) : name_(name) {}
  ~ClosedLibrary();
  ClosedLibrary(const ClosedLibrary&) = delete;
  ClosedLibrary& operator=(const ClosedLibrary&) = delete;

  /// False when the library is not there or cannot be loaded.
  bool Available();

  /// The call with the name. Throws LibraryError when the library or the call is missing.
  template <typename Function>
  Function Call(const char* call) {
    return std::bit_cast<Function>(Find(call));
  }

 private:
  FARPROC Find(const char* call);

  std::wstring name_;
  HMODULE module_ = nullptr;
  DWORD error_ = ERROR_SUCCESS;  ///< why the library is not available
};

}  // namespace tarvik
