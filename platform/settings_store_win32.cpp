#include "platform/settings_store_win32.h"

#include "platform/registry_win32.h"

namespace tarvik {
namespace {

std::wstring PathOf(const std::wstring& section) { return L"Software\\NORVAX_FN_PingUtil\\" + section; }

}  // namespace

std::optional<std::wstring> Win32SettingsStore::Read(const std::wstring& section, const std::wstring& key) {
  return ReadRegistryText(HKEY_CURRENT_USER, PathOf(section), key);
}

bool Win32SettingsStore::Write(const std::wstring& section, const std::wstring& key,
                               const std::wstring& value) {
  RegistryKey opened;
  if (::RegCreateKeyExW(HKEY_CURRENT_USER, PathOf(section).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                        opened.Out(), nullptr) != ERROR_SUCCESS)
    return false;
  return ::RegSetValueExW(opened.Get(), key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace tarvik
