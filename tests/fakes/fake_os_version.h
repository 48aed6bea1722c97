#pragma once

#include "platform/os_version.h"

namespace tarvik::test {

/// A version query that answers as told; an up-to-date Windows unless told otherwise.
class FakeOsVersion final : public OsVersion {
 public:
  bool GetVersionExA(OsVersionRecord& answer) override {
    askedSize = answer.size;
    if (!succeeds) return false;
    answer.platformId = platformId;
    answer.majorVersion = majorVersion;
    answer.minorVersion = minorVersion;
    return true;
  }

  bool succeeds = true;
  uint32_t platformId = 2;
  uint32_t majorVersion = 10;
  uint32_t minorVersion = 0;
  uint32_t askedSize = 0;
};

}  // namespace tarvik::test
