#pragma once

#include "platform/settings_store.h"

namespace tarvik {

/// The settings area in the registry (advapi32).
class Win32SettingsStore final : public SettingsStore {
 public:
  std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) override;
  bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) override;
};

}  // namespace tarvik
