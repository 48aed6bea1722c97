#pragma once

#include "k7/k7_api.h"
#include "platform/closed_library_win32.h"

namespace tarvik {

/// k7api.dll on this PC.
class Win32K7Api final : public K7Api {
 public:
  void K7_WSAStartup() override;
  int32_t K7_AllocHandle(int32_t& handle) override;
  int16_t K7_ConnectServer(int32_t handle, char* host) override;
  int16_t K7_CheckReboot2(int32_t handle, char* address, int32_t stateA, int32_t stateB, int32_t& newA,
                          int32_t& newB, int32_t& extra, int16_t& live) override;
  void K7_GetLastError(int32_t handle, int32_t& errorCode, int32_t& systemError) override;
  void K7_FreeHandle(int32_t handle) override;
  void K7_WSACleanup() override;

 private:
  struct Calls {
    int32_t(WINAPI* startup)();
    int32_t(WINAPI* allocHandle)(int32_t*);
    int16_t(WINAPI* connectServer)(int32_t, char*);
    int16_t(WINAPI* checkReboot2)(int32_t, char*, int32_t, int32_t, int32_t*, int32_t*, int32_t*, int16_t*);
    int32_t(WINAPI* getLastError)(int32_t, int32_t*, int32_t*);
    int32_t(WINAPI* freeHandle)(int32_t);
    int32_t(WINAPI* cleanup)();
  };

  /// All of them or none: a test that could not give back what it took must not begin.
  const Calls& Library();

  ClosedLibrary library_{L"k7api.dll"};
  Calls calls_{};
};

}  // namespace tarvik
