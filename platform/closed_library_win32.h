#pragma once

#include <bit>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// One of the maker's closed libraries. The first use looks for it on the standard search path, without the
/// current folder, and loads it by the full path found. After a failure every later use tries again.
class ClosedLibrary {
 public:
  explicit ClosedLibrary(const wchar_t* name) : name_(name) {}
  ~ClosedLibrary();
  ClosedLibrary(const ClosedLibrary&) = delete;
  ClosedLibrary& operator=(const ClosedLibrary&) = delete;

  /// Loads the library if necessary. False when it is not found or cannot be loaded.
  bool Available();

  /// The exported function named `call`. Throws LibraryError when the library cannot be loaded or does not
  /// export it.
  template <typename Function>
  Function Call(const char* call) {
    return std::bit_cast<Function>(Find(call));
  }

 private:
  FARPROC Find(const char* call);

  std::wstring name_;
  HMODULE module_ = nullptr;
  DWORD error_ = ERROR_SUCCESS;  ///< of the latest failed load
};

}  // namespace tarvik
