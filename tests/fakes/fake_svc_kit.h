#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "k7/svc_kit.h"
#include "platform/runtime_error.h"

namespace tarvik::test {

/// An SvcKit library with one service. Records every call.
class FakeSvcKit final : public SvcKit {
 public:
  static constexpr auto kNoService = static_cast<int32_t>(0x80000124);

  int32_t QSetup_InstallService(const char* name, const char* displayName, const char* path,
                                int32_t startType) override {
    Call(std::string("Install ") + name + "|" + displayName + "|" + path + "|" + std::to_string(startType));
    return installResult;
  }
  int32_t QSetup_RemoveService(const char* name) override {
    Call(std::string("Remove ") + name);
    return removeResult;
  }
  int32_t QSetup_StartService(const char* name, int32_t wait) override {
    Call(std::string("Start ") + name + " " + std::to_string(wait));
    if (startResult == 0) Become(4);
    return startResult;
  }
  int32_t QSetup_StopService(const char* name, int32_t wait) override {
    Call(std::string("Stop ") + name + " " + std::to_string(wait));
    if (stopResult == 0) Become(1);
    return stopResult;
  }
  int32_t QSetup_GetServiceStatus(const char* name, int32_t& out, int32_t wait) override {
    Call(std::string("Query ") + name + " " + std::to_string(wait));
    if (onQuery) onQuery();
    if (queriesLeft > 0 && --queriesLeft == 0) status = target;
    if (queryResult != kNoService) out = status;
    return queryResult;
  }

  /// Puts the service into this state, without a pending start or stop.
  void Settle(int32_t state) {
    status = state;
    queriesLeft = 0;
  }

  /// Number of calls whose record starts with the word.
  long Count(const std::string& word) const {
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.starts_with(word); });
  }

  bool missing = false;  ///< the library cannot be loaded
  int32_t status = 4;    ///< 1 = stopped, 4 = running
  /// The number of queries until a start or stop takes effect; 0 = it never does.
  int slowness = 1;
  int32_t pending = 0;  ///< the state meanwhile; 0 = the state does not change
  int32_t installResult = 0;
  int32_t removeResult = 0;
  int32_t startResult = 0;
  int32_t stopResult = 0;
  int32_t queryResult = 0;
  std::function<void()> onQuery;

  std::vector<std::string> calls;

 private:
  void Call(std::string call) {
    if (missing) throw RuntimeError(L"SvcKit.dll cannot be loaded.");
    calls.push_back(std::move(call));
  }
  void Become(int32_t wanted) {
    target = wanted;
    queriesLeft = slowness;
    if (pending != 0) status = pending;
  }

  int32_t target = 0;
  int queriesLeft = 0;
};

}  // namespace tarvik::test
