#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik {

/// Owns an open registry key.
class RegistryKey {
 public:
  ~RegistryKey() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  HKEY* Out() { return &key_; }
  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

/// The text value (REG_SZ or REG_EXPAND_SZ) `name` of the key below `root`, up to its first NUL. Environment
/// variables in a REG_EXPAND_SZ value are expanded. Nothing when the value is missing, has another type or
/// cannot be read.
/// `view`: 0 = the program's own view, KEY_WOW64_64KEY = that of 64-bit programs.
std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& key, const std::wstring& name,
                                             REGSAM view = 0);

}  // namespace tarvik
