#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvik {

inline constexpr uint32_t kPlatformWindows9x = 1;  ///< Windows 95, 98 and Me
inline constexpr uint32_t kPlatformNt = 2;

/// OSVERSIONINFOA, the version record of GetVersionExA. `size` must be set before the call.
struct OsVersionRecord {
  uint32_t size = 148;
  uint32_t majorVersion = 0;
  uint32_t minorVersion = 0;
  uint32_t buildNumber = 0;
  uint32_t platformId = 0;  ///< kPlatformWindows9x or kPlatformNt
  char servicePack[128] = {};
};
static_assert(sizeof(OsVersionRecord) == 148 && offsetof(OsVersionRecord, platformId) == 16);

}  // namespace tarvik
