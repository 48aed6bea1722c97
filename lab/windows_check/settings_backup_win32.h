#pragma once

namespace tarvik::check {

/// Takes the product's settings of this user away during its lifetime, so that the check starts like a new
/// user, and restores them on destruction. If the check is killed, the next one restores them.
class SettingsBackup {
 public:
  /// Throws CheckError.
  SettingsBackup();
  SettingsBackup(const SettingsBackup&) = delete;
  SettingsBackup& operator=(const SettingsBackup&) = delete;
  ~SettingsBackup();
};

}  // namespace tarvik::check
