#pragma once

#include "platform/os_version.h"

namespace tarvik {

/// The version query of kernel32. The manifest names the supported systems, so it tells the truth.
class Win32OsVersion final : public OsVersion {
 public:
  bool GetVersionExA(OsVersionRecord& record) override;
};

}  // namespace tarvik
