#pragma once

#include <string>

#include "platform/system.h"

namespace tarvik {

/// The Windows version that GetVersionExA reports. If that call fails, the name is empty and every Is...
/// returns false.
class OsVersionInfo {
 public:
  explicit OsVersionInfo(System& system) : known_(system.GetVersionExA(record_)) {}

  /// The platform, " Running ", and the version and build numbers: "Windows NT Running 6.1.7601".
  std::wstring GetVersionName() const;

  // Dormant: no caller needs the release; net/ has its own GetOsKind. Kept so that the releases are named in
  // one place.
  bool IsWinNt351() const { return IsNt(3, 51); }
  bool IsWinNt40() const { return IsNt(4, 0); }
  /// Also true for Windows 98 and Me, which have the same platform id.
  bool IsWin95() const;
  bool IsWin2000() const { return IsNt(5, 0); }
  bool IsWinXP() const { return IsNt(5, 1); }
  bool IsVista() const { return IsNt(6, 0); }

 private:
  bool IsNt(uint32_t major, uint32_t minor) const;

  OsVersionRecord record_;
  bool known_;
};

}  // namespace tarvik
