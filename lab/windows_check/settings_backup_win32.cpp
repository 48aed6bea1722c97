#include "lab/windows_check/settings_backup_win32.h"

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

// Below HKEY_CURRENT_USER. The first is where the product stores its settings (platform/settings_store.h).
constexpr wchar_t kSettings[] = L"Software\\NORVAX_FN_PingUtil";
constexpr wchar_t kBackup[] = L"Software\\Tarvik WindowsCheck backup";

bool KeyExists(const wchar_t* path) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  ::RegCloseKey(key);
  return true;
}

bool CopyKey(const wchar_t* from, const wchar_t* to) {
  HKEY target = nullptr;
  if (::RegCreateKeyExW(HKEY_CURRENT_USER, to, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &target, nullptr) !=
      ERROR_SUCCESS)
    return false;
  const LSTATUS result = ::RegCopyTreeW(HKEY_CURRENT_USER, from, target);
  ::RegCloseKey(target);
  return result == ERROR_SUCCESS;
}

/// Puts the backup in the place of what the check has left behind.
void Restore() {
  ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
  if (KeyExists(kBackup) && CopyKey(kBackup, kSettings)) ::RegDeleteTreeW(HKEY_CURRENT_USER, kBackup);
}

}  // namespace

SettingsBackup::SettingsBackup() {
  // Left by a check that was killed: the user's settings are in the backup.
  if (KeyExists(kBackup)) Restore();
  if (!KeyExists(kSettings)) return;
  if (!CopyKey(kSettings, kBackup)) throw CheckError("the product's settings cannot be saved");
  ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
}

SettingsBackup::~SettingsBackup() { Restore(); }

}  // namespace tarvik::check
