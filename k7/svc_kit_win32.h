#pragma once

#include "k7/svc_kit.h"
#include "platform/closed_library_win32.h"

namespace tarvik {

/// SvcKit.dll on this PC.
class Win32SvcKit final : public SvcKit {
 public:
  int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                int32_t startType) override;
  int32_t QSetup_RemoveService(const char* name) override;
  int32_t QSetup_StartService(const char* name, int32_t wait) override;
  int32_t QSetup_StopService(const char* name, int32_t wait) override;
  int32_t QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) override;

 private:
  ClosedLibrary library_{L"SvcKit.dll"};
};

}  // namespace tarvik
