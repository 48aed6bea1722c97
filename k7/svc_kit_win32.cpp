#include "k7/svc_kit.h"

#include "platform/closed_library_win32.h"

namespace tarvik {
namespace {

class Win32SvcKit final : public SvcKit {
 public:
  int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                int32_t startType) override {
    using Function = int32_t(WINAPI*)(const char*, const char*, const char*, int32_t);
    return library_.Call<Function>("QSetup_InstallService")(name, displayName, path, startType);
  }
  int32_t QSetup_RemoveService(const char* name) override {
    return library_.Call<int32_t(WINAPI*)(const char*)>("QSetup_RemoveService")(name);
  }
  int32_t QSetup_StartService(const char* name, int32_t wait) override {
    return library_.Call<int32_t(WINAPI*)(const char*, int32_t)>("QSetup_StartService")(name, wait);
  }
  int32_t QSetup_StopService(const char* name, int32_t wait) override {
    return library_.Call<int32_t(WINAPI*)(const char*, int32_t)>("QSetup_StopService")(name, wait);
  }
  int32_t QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) override {
    using Function = int32_t(WINAPI*)(const char*, int32_t*, int32_t);
    return library_.Call<Function>("QSetup_GetServiceStatus")(name, &status, wait);
  }

 private:
  ClosedLibrary library_{L"SvcKit.dll"};
};

}  // namespace

std::unique_ptr<SvcKit> MakeSvcKit() { return std::make_unique<Win32SvcKit>(); }

}  // namespace tarvik
