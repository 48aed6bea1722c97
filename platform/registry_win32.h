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

/// A text value, cut at its first NUL; in one of the kind that holds environment variables they are replaced.
/// Nothing when it is missing, is no text or cannot be read.
std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& key, const std::wstring& name);

}  // namespace tarvik
