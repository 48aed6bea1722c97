#include "k7/k7_api_win32.h"

#include <type_traits>

namespace tarvik {

const Win32K7Api::Calls& Win32K7Api::Library() {
  if (calls_.cleanup != nullptr) return calls_;
  Calls found{};
  const auto find = [this](const char* name, auto& call) {
    call = library_.Call<std::remove_reference_t<decltype(call)>>(name);
  };
  find("K7_WSAStartup", found.startup);
  find("K7_AllocHandle", found.allocHandle);
  find("K7_ConnectServer", found.connectServer);
  find("K7_CheckReboot2", found.checkReboot2);
  find("K7_GetLastError", found.getLastError);
  find("K7_FreeHandle", found.freeHandle);
  find("K7_WSACleanup", found.cleanup);
  return calls_ = found;
}

void Win32K7Api::K7_WSAStartup() { Library().startup(); }

int32_t Win32K7Api::K7_AllocHandle(int32_t& handle) { return Library().allocHandle(&handle); }

int16_t Win32K7Api::K7_ConnectServer(int32_t handle, char* host) {
  return Library().connectServer(handle, host);
}

int16_t Win32K7Api::K7_CheckReboot2(int32_t handle, char* address, int32_t stateA, int32_t stateB,
                                    int32_t& newA, int32_t& newB, int32_t& extra, int16_t& live) {
  return Library().checkReboot2(handle, address, stateA, stateB, &newA, &newB, &extra, &live);
}

void Win32K7Api::K7_GetLastError(int32_t handle, int32_t& errorCode, int32_t& systemError) {
  Library().getLastError(handle, &errorCode, &systemError);
}

void Win32K7Api::K7_FreeHandle(int32_t handle) { Library().freeHandle(handle); }

void Win32K7Api::K7_WSACleanup() { Library().cleanup(); }

}  // namespace tarvik
