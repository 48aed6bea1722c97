#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// The service-setup library (SvcKit.dll). Strings are single-byte. Every call returns 0 or the library's
/// error code, and throws RuntimeError when the library cannot be loaded or lacks the call.
class SvcKit {
 public:
  /// The wait that the program always passes; what it stands for is the library's own.
  static constexpr int32_t kWait = -1;

  virtual ~SvcKit() = default;

  virtual int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                        int32_t startType) = 0;

  virtual int32_t QSetup_RemoveService(const char* name) = 0;

  virtual int32_t QSetup_StartService(const char* name, int32_t wait) = 0;

  virtual int32_t QSetup_StopService(const char* name, int32_t wait) = 0;

  /// `status`: a state of the Windows service control manager.
  virtual int32_t QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) = 0;
};

/// SvcKit.dll of this PC, loaded at the first call.
std::unique_ptr<SvcKit> MakeSvcKit();

}  // namespace tarvik
