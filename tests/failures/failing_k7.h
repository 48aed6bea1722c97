#pragma once

#include <cstring>

#include "k7/k7_api.h"
#include "k7/svc_kit.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

/// The product loads the library at the first call, so only that one can find exports missing.
class FailingK7Api final : public Failing<K7Api> {
 public:
  using Failing::Failing;

  void K7_WSAStartup() override {
    if (plan_.WayToFail("K7_WSAStartup", 1) == 1) ThrowMissing("K7_WSAStartup");
    library_.K7_WSAStartup();
  }
  int32_t K7_AllocHandle(int32_t& handle) override {
    const int way = plan_.WayToFail("K7_AllocHandle", 3);
    if (way == 1) return -1;
    if (way == 2) {
      handle = 0;
      return 0;
    }
    const int32_t result = library_.K7_AllocHandle(handle);
    return way == 3 ? 1 : result;  // with a handle in spite of the error
  }
  int16_t K7_ConnectServer(int32_t handle, char* host) override {
    const int16_t result = library_.K7_ConnectServer(handle, host);
    return plan_.WayToFail("K7_ConnectServer", 1) == 1 ? int16_t{0} : result;
  }
  int16_t K7_CheckReboot2(int32_t handle, char* address, int32_t stateA, int32_t stateB, int32_t& newA,
                          int32_t& newB, int32_t& extra, int16_t& live) override {
    const int way = plan_.WayToFail("K7_CheckReboot2", 3);
    if (way == 1) return 0;
    if (way == 2) return 1;  // writes nothing
    const int16_t result = library_.K7_CheckReboot2(handle, address, stateA, stateB, newA, newB, extra, live);
    if (way == 3) std::memset(address, 'x', kMinTextBytes);
    return result;
  }
  void K7_GetLastError(int32_t handle, int32_t& errorCode, int32_t& systemError) override {
    const int way = plan_.WayToFail("K7_GetLastError", 2);
    if (way == 1) return;  // writes nothing
    library_.K7_GetLastError(handle, errorCode, systemError);
    if (way == 2) errorCode = systemError = -1;
  }
  // Returns nothing, so it cannot fail visibly.
  void K7_FreeHandle(int32_t handle) override { library_.K7_FreeHandle(handle); }
  void K7_WSACleanup() override {
    ++cleanups;
    if (plan_.WayToFail("K7_WSACleanup", 1) == 1) ThrowMissing("K7_WSACleanup");
    library_.K7_WSACleanup();
  }

  int cleanups = 0;
};

class FailingSvcKit final : public Failing<SvcKit> {
 public:
  using Failing::Failing;

  int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                int32_t startType) override {
    const int32_t failure = FailureCode("QSetup_InstallService");
    return failure != 0 ? failure : library_.QSetup_InstallService(name, displayName, path, startType);
  }
  int32_t QSetup_RemoveService(const char* name) override {
    const int32_t failure = FailureCode("QSetup_RemoveService");
    return failure != 0 ? failure : library_.QSetup_RemoveService(name);
  }
  int32_t QSetup_StartService(const char* name, int32_t wait) override {
    const int32_t failure = FailureCode("QSetup_StartService");
    return failure != 0 ? failure : library_.QSetup_StartService(name, wait);
  }
  int32_t QSetup_StopService(const char* name, int32_t wait) override {
    const int32_t failure = FailureCode("QSetup_StopService");
    return failure != 0 ? failure : library_.QSetup_StopService(name, wait);
  }
  int32_t QSetup_GetServiceStatus(const char* name, int32_t& status, int32_t wait) override {
    const int way = plan_.WayToFail("QSetup_GetServiceStatus", 6);
    if (way == 3) ThrowMissing("QSetup_GetServiceStatus");
    if (way == 1) return kAccessDenied;
    if (way == 2) return kNoSuchService;
    const int32_t result = library_.QSetup_GetServiceStatus(name, status, wait);
    if (way == 4) status = 3;
    if (way == 5) status = 0;
    if (way == 6) status = -1;
    return result;
  }

 private:
  static constexpr auto kAccessDenied = static_cast<int32_t>(0x80000005);
  static constexpr auto kNoSuchService = static_cast<int32_t>(0x80000124);

  int32_t FailureCode(const char* call) {
    const int way = plan_.WayToFail(call, 3);
    if (way == 3) ThrowMissing(call);
    return way == 0 ? 0 : way == 1 ? kAccessDenied : kNoSuchService;
  }
};

}  // namespace tarvik::test
