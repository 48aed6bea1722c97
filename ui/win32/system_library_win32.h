#pragma once

#include "platform/windows_win32.h"

namespace tarvik::ui {

/// A library of the system that the program does not import, because a copy planted beside the program would
/// be taken instead of the system's own.
class SystemLibrary {
 public:
  /// The library from the system's folder.
  static SystemLibrary FromSystemFolder(const wchar_t* name);
  /// The version of the library that the program's manifest asks for.
  static SystemLibrary FromManifest(const wchar_t* name);

  ~SystemLibrary();
  SystemLibrary(const SystemLibrary&) = delete;
  SystemLibrary& operator=(const SystemLibrary&) = delete;

  /// The function of that name, or null when the library or the function is not there.
  template <typename Function>
  Function* Find(const char* name) const {
    return module_ == nullptr
               ? nullptr
               : reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

 private:
  explicit SystemLibrary(HMODULE module) : module_(module) {}

  HMODULE module_;
};

}  // namespace tarvik::ui
