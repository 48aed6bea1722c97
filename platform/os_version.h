#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

inline constexpr uint32_t kPlatformWindows9x = 1;  ///< Windows 95, 98 and Me
inline constexpr uint32_t kPlatformNt = 2;

/// OSVERSIONINFOA, the 148-byte version record of GetVersionExA.
struct OsVersionRecord {
  uint32_t size = 148;
  uint32_t majorVersion = 0;
  uint32_t minorVersion = 0;
  uint32_t buildNumber = 0;
  uint32_t platformId = 0;  ///< kPlatformWindows9x or kPlatformNt
  char servicePack[128] = {};
};
static_assert(sizeof(OsVersionRecord) == 148 && offsetof(OsVersionRecord, platformId) == 16);

class OsVersion {
 public:
  virtual ~OsVersion() = default;

  /// False when the version cannot be queried.
  virtual bool GetVersionExA(OsVersionRecord& record) = 0;
};

/// The version query of kernel32. The manifest names the supported systems, so it reports the real one.
std::unique_ptr<OsVersion> MakeOsVersion();

}  // namespace tarvik
