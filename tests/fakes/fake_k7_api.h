#pragma once

#include <algorithm>
#include <cstring>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "k7/k7_api.h"
#include "platform/runtime_error.h"

namespace tarvik::test {

/// A K7 API without a server. Records every call, and which handles are open.
class FakeK7Api final : public K7Api {
 public:
  struct Check {
    int32_t handle;
    std::string address;
    int32_t stateA;
    int32_t stateB;
  };

  void K7_WSAStartup() override { Call("K7_WSAStartup"); }
  int32_t K7_AllocHandle(int32_t& out) override {
    Call("K7_AllocHandle");
    out = handle;
    if (handle != 0) openHandles.insert(handle);
    return allocResult;
  }
  int16_t K7_ConnectServer(int32_t, char* host) override {
    Call("K7_ConnectServer");
    connectedTo = Take(host);
    Rewrite(host, hostAfter);
    return connectResult;
  }
  int16_t K7_CheckReboot2(int32_t checked, char* address, int32_t stateA, int32_t stateB, int32_t& newA,
                          int32_t& newB, int32_t& extra, int16_t& out) override {
    Call("K7_CheckReboot2");
    checks.push_back({checked, Take(address), stateA, stateB});
    Rewrite(address, addressAfter);
    if (onCheck) onCheck();
    if (halfFilled) return 1;
    const auto n = static_cast<int32_t>(checks.size());
    newA = 100 + n;
    newB = -n;
    extra = 4711;
    out = live;
    return n > goodChecks ? int16_t{0} : int16_t{1};
  }
  void K7_GetLastError(int32_t, int32_t& code, int32_t& system) override {
    Call("K7_GetLastError");
    if (halfFilled) return;
    code = static_cast<int32_t>(errorCode);
    system = systemError;
  }
  void K7_FreeHandle(int32_t freed) override {
    Call("K7_FreeHandle");
    wrongFrees += openHandles.erase(freed) == 0;
  }
  void K7_WSACleanup() override { Call("K7_WSACleanup"); }

  /// Number of calls of that name.
  int Count(const std::string& name) const {
    return static_cast<int>(std::count(calls.begin(), calls.end(), name));
  }

  bool missing = false;  ///< the library cannot be loaded
  int32_t handle = 5;    ///< the handle from K7_AllocHandle; 0 = none
  int32_t allocResult = 0;
  int16_t connectResult = -1;
  int goodChecks = 1000000;  ///< number of checks that succeed
  int16_t live = 1;
  uint32_t errorCode = 0x1009F002;
  int32_t systemError = 0;
  bool halfFilled = false;   ///< calls succeed but leave their outputs untouched
  std::string hostAfter;     ///< overwrites the host name
  std::string addressAfter;  ///< overwrites the address
  std::function<void()> onCheck;

  std::vector<std::string> calls;
  std::string connectedTo;
  std::vector<Check> checks;
  std::set<int32_t> openHandles;
  int wrongFrees = 0;
  bool zeroFilled = true;  ///< every text argument was filled with NULs up to kTextSize

 private:
  void Call(const char* name) {
    if (missing) throw RuntimeError(L"k7api.dll cannot be loaded.");
    calls.emplace_back(name);
  }
  std::string Take(const char* text) {
    std::string taken(text);
    for (size_t i = taken.size(); i < kMinTextBytes; ++i) zeroFilled = zeroFilled && text[i] == '\0';
    return taken;
  }
  static void Rewrite(char* text, const std::string& after) {
    if (!after.empty()) std::memcpy(text, after.data(), after.size());
  }
};

}  // namespace tarvik::test
