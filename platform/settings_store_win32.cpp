#include "platform/settings_store_win32.h"

#include <algorithm>

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

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

std::wstring PathOf(const std::wstring& section) { return L"Software\\NORVAX_FN_PingUtil\\" + section; }

}  // namespace

std::optional<std::wstring> Win32SettingsStore::Read(const std::wstring& section, const std::wstring& key) {
  RegistryKey opened;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, PathOf(section).c_str(), 0, KEY_QUERY_VALUE, opened.Out()) != ERROR_SUCCESS)
    return std::nullopt;
  DWORD type = 0;
  DWORD bytes = 0;
  if (::RegQueryValueExW(opened.Get(), key.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS ||
      type != REG_SZ)
    return std::nullopt;
  std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
  if (::RegQueryValueExW(opened.Get(), key.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &bytes) !=
          ERROR_SUCCESS ||
      type != REG_SZ)
    return std::nullopt;
  // Nobody promises that a stored string ends in a NUL, or that it holds only one.
  value.resize(bytes / sizeof(wchar_t));
  value.resize(std::min(value.find(L'\0'), value.size()));
  return value;
}

bool Win32SettingsStore::Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) {
  RegistryKey opened;
  if (::RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(section).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                        opened.Out(), nullptr) != ERROR_SUCCESS)
    return false;
  return ::RegSetValueExW(opened.Get(), key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace tarvik
