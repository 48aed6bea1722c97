#include "k7/k7_api.h"

#include <type_traits>

#include "platform/closed_library_win32.h"

namespace tarvik {
namespace {

class Win32K7Api final : public K7Api {
 public:
  void K7_WSAStartup() override { Library().startup(); }
  int32_t K7_AllocHandle(int32_t& handle) override { return Library().allocHandle(&handle); }
  int16_t K7_ConnectServer(int32_t handle, char* host) override {
    return Library().connectServer(handle, host);
  }
  int16_t K7_CheckReboot2(int32_t handle, char* address, int32_t stateA, int32_t stateB, int32_t& newA,
                          int32_t& newB, int32_t& extra, int16_t& live) override {
    return Library().checkReboot2(handle, address, stateA, stateB, &newA, &newB, &extra, &live);
  }
  void K7_GetLastError(int32_t handle, int32_t& errorCode, int32_t& systemError) override {
    Library().getLastError(handle, &errorCode, &systemError);
  }
  void K7_FreeHandle(int32_t handle) override { Library().freeHandle(handle); }
  void K7_WSACleanup() override { Library().cleanup(); }

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

  /// Finds all functions or throws: a test that could not free its handle at the end must not start.
  const Calls& Library() {
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

  ClosedLibrary library_{L"k7api.dll"};
  Calls calls_{};
};

}  // namespace

std::unique_ptr<K7Api> MakeK7Api() { return std::make_unique<Win32K7Api>(); }

}  // namespace tarvik
