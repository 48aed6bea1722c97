#pragma once

#include <string>

#include "platform/system.h"

namespace tarvik {

/// Which Windows this is. A version that cannot be queried is none of them and has no name.
class OsVersionInfo {
 public:
  explicit OsVersionInfo(System& system) : known_(system.GetVersionExA(record_)) {}

  /// The platform, " Running ", and the version and build numbers: "Windows NT Running 6.1.7601".
  std::wstring GetVersionName() const;

  // Dormant: no caller asks for one Windows release; the network check has its own GetOsKind. Kept to name
  // the releases in one place.
  bool IsWinNt351() const { return IsNt(3, 51); }
  bool IsWinNt40() const { return IsNt(4, 0); }
  /// Windows 95 and its successors 98 and Me, which are the same platform.
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
