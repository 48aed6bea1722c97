#pragma once

#include "net/ip_helper.h"
#include "platform/system_library_win32.h"

namespace tarvik {

/// The system's own IP helper, loaded on first use.
class Win32IpHelper final : public IpHelper {
 public:
  uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) override;

 private:
  using GetAdaptersInfoFunction = ULONG(WINAPI*)(void*, ULONG*);

  SystemLibrary library_;
  GetAdaptersInfoFunction getAdaptersInfo_ = nullptr;
};

}  // namespace tarvik
