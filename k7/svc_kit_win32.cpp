#include "k7/svc_kit_win32.h"

namespace tarvik {

int32_t Win32SvcKit::QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                           int32_t startType) {
  using Function = int32_t(WINAPI*)(const char*, const char*, const char*, int32_t);
  return library_.Call<Function>("QSetup_InstallService")(name, displayName, path, startType);
}

int32_t Win32SvcKit::QSetup_RemoveService(const char* name) {
  return library_.Call<int32_t(WINAPI*)(const char*)>("QSetup_RemoveService")(name);
}

int32_t Win32SvcKit::QSetup_StartService(const char* name, int32_t wait) {
  return library_.Call<int32_t(WINAPI*)(const char*, int32_t)>("QSetup_StartService")(name, wait);
}

int32_t Win32SvcKit::QSetup_StopService(const char* name, int32_t wait) {
  return library_.Call<int32_t(WINAPI*)(const char*, int32_t)>("QSetup_StopService")(name, wait);
}

int32_t Win32SvcKit::QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) {
  using Function = int32_t(WINAPI*)(const char*, int32_t*, int32_t);
  return library_.Call<Function>("QSetup_GetServiceStatus")(name, &status, wait);
}

}  // namespace tarvik
