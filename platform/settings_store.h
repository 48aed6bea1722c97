#pragma once

#include <memory>
#include <optional>
#include <string>

namespace tarvik {

/// The per-user settings in the registry, below HKEY_CURRENT_USER\Software\NORVAX_FN_PingUtil\<section>.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The string value `key`; nothing when it is missing, is not a string or cannot be read.
  virtual std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) = 0;

  /// Writes the string value, creating the section if necessary. False when it cannot be written.
  virtual bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) = 0;
};

/// The settings in the registry of this PC (advapi32).
std::unique_ptr<SettingsStore> MakeSettingsStore();

}  // namespace tarvik
