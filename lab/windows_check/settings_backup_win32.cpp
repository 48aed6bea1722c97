#include "lab/windows_check/settings_backup_win32.h"

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

// Below HKEY_CURRENT_USER. The first is where the product stores its settings (platform/settings_store.h).
constexpr wchar_t kSettings[] = L"Software\\NORVAX_FN_PingUtil";
constexpr wchar_t kBackup[] = L"Software\\Tarvik WindowsCheck backup";
/// Does not exist when the user had no settings.
constexpr wchar_t kSavedSettings[] = L"Software\\Tarvik WindowsCheck backup\\Settings";
/// A value of kBackup that is written last. A backup without it is a part of the settings, which are then
/// still in their place.
constexpr wchar_t kComplete[] = L"Complete";

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

bool IsComplete() {
  return ::RegGetValueW(HKEY_CURRENT_USER, kBackup, kComplete, RRF_RT_REG_SZ, nullptr, nullptr, nullptr) ==
         ERROR_SUCCESS;
}

bool Save() {
  if (KeyExists(kSettings) && !CopyKey(kSettings, kSavedSettings)) return false;
  constexpr wchar_t kYes[] = L"1";
  return ::RegSetKeyValueW(HKEY_CURRENT_USER, kBackup, kComplete, REG_SZ, kYes, sizeof kYes) == ERROR_SUCCESS;
}

/// Restores the settings from a complete backup. Deletes the backup, complete or not.
void Restore() {
  if (IsComplete()) {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
    // Otherwise the backup stays for the next check.
    if (KeyExists(kSavedSettings) && !CopyKey(kSavedSettings, kSettings)) return;
  }
  ::RegDeleteTreeW(HKEY_CURRENT_USER, kBackup);
}

}  // namespace

SettingsBackup::SettingsBackup() {
  // Left by a check that was killed.
  if (KeyExists(kBackup)) Restore();
  if (KeyExists(kBackup)) throw CheckError("the product's settings cannot be restored");
  if (!Save()) {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kBackup);
    throw CheckError("the product's settings cannot be saved");
  }
  ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
}

SettingsBackup::~SettingsBackup() { Restore(); }

}  // namespace tarvik::check
