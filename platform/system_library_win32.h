#pragma once

#include <bit>

#include "platform/windows_win32.h"

namespace tarvik {

/// A Windows library that is not one of the KnownDLLs. A static import or a load by bare name would use a
/// file of that name planted next to the program, so it is loaded at run time and from system32 only. It
/// stays loaded until the program ends: its threads, its windows or the clipboard may still need it.
class SystemLibrary {
 public:
  SystemLibrary() = default;
  SystemLibrary(const SystemLibrary&) = delete;
  SystemLibrary& operator=(const SystemLibrary&) = delete;

  /// False when it cannot be loaded from system32.
  bool Load(const wchar_t* name);

  /// The same for a library whose version the program's manifest selects, such as comctl32.dll.
  bool LoadByManifest(const wchar_t* name);

  /// The exported function; null when the library does not export it or is not loaded.
  template <typename Function>
  Function Find(const char* name) const {
    return module_ == nullptr ? nullptr : std::bit_cast<Function>(::GetProcAddress(module_, name));
  }

 private:
  bool LoadFromSystemFolder(const wchar_t* name);

  HMODULE module_ = nullptr;
};

}  // namespace tarvik
