#pragma once

#include <bit>

#include "platform/windows_win32.h"

namespace tarvik {

/// A library of Windows that is not on its list of known libraries. A static import of such a one, or a
/// load by bare name, would take a planted file beside the program; this one comes from system32 only.
class SystemLibrary {
 public:
  SystemLibrary() = default;
  SystemLibrary(const SystemLibrary&) = delete;
  SystemLibrary& operator=(const SystemLibrary&) = delete;
  ~SystemLibrary();

  /// Loads the library, in place of the one loaded before. False when system32 has none of that name.
  bool Load(const wchar_t* name);

  /// The same for a library whose version the program's manifest chooses.
  bool LoadByManifest(const wchar_t* name);

  /// The library's function of that name; null when it has none or no library is loaded.
  template <typename Function>
  Function Find(const char* name) const {
    return module_ == nullptr ? nullptr : std::bit_cast<Function>(::GetProcAddress(module_, name));
  }

 private:
  bool LoadFromSystemFolder(const wchar_t* name);
  void Free();

  HMODULE module_ = nullptr;
};

}  // namespace tarvik
