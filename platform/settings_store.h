#pragma once

#include <memory>
#include <optional>
#include <string>

namespace tarvik {

/// The per-user settings area of the registry: HKEY_CURRENT_USER\Software\NORVAX_FN_PingUtil\<section>.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// The string value `key`; nothing when it is missing, is no string or cannot be read.
  virtual std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) = 0;

  /// Writes the string value; creates the section when it is missing. False when it cannot be written.
  virtual bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) = 0;
};

/// The settings area in the registry of this PC (advapi32).
std::unique_ptr<SettingsStore> MakeSettingsStore();

}  // namespace tarvik
