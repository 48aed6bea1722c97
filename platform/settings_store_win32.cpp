#include "platform/settings_store.h"

#include "platform/registry_win32.h"

namespace tarvik {
namespace {

std::wstring PathOf(const std::wstring& section) { return L"Software\\NORVAX_FN_PingUtil\\" + section; }

class Win32SettingsStore final : public SettingsStore {
 public:
  std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) override {
    return ReadRegistryText(HKEY_CURRENT_USER, PathOf(section), key);
  }
  bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) override {
    RegistryKey opened;
    if (::RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(section).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                          opened.Out(), nullptr) != ERROR_SUCCESS)
      return false;
    return ::RegSetValueExW(opened.Get(), key.c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(value.c_str()),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
  }
};

}  // namespace

std::unique_ptr<SettingsStore> MakeSettingsStore() { return std::make_unique<Win32SettingsStore>(); }

}  // namespace tarvik
