#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// The service-setup library (SvcKit.dll). Strings are ANSI. Every call returns 0 or the library's error
/// code, and throws RuntimeError when the library cannot be loaded or does not export the function.
class SvcKit {
 public:
  /// The program passes this as every `wait`. The library does not document the argument.
  static constexpr int32_t kWait = -1;

  virtual ~SvcKit() = default;

  virtual int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                        int32_t startType) = 0;

  virtual int32_t QSetup_RemoveService(const char* name) = 0;

  virtual int32_t QSetup_StartService(const char* name, int32_t wait) = 0;

  virtual int32_t QSetup_StopService(const char* name, int32_t wait) = 0;

  /// `status`: a state of the Windows service control manager, see SvcUtl's pSvcCond values. Not set for a
  /// service that the library does not know.
  virtual int32_t QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) = 0;
};

/// SvcKit.dll of this PC, loaded at the first call.
std::unique_ptr<SvcKit> MakeSvcKit();

}  // namespace tarvik
