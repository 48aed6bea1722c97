#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik::test {

/// Which of the calls that a run makes fail, and how. Every failing library asks the plan at each call.
class FailurePlan {
 public:
  struct Call {
    const char* name;
    int ways;  ///< in how many ways it can fail
  };
  struct Failure {
    size_t call;  ///< the call's place in the run
    int way;      ///< 1 = the first
  };

  /// From now on calls are counted, and these fail.
  void Begin(std::vector<Failure> failures) {
    failures_ = std::move(failures);
    calls_.clear();
    struck_.clear();
    active_ = true;
  }
  /// From now on nothing fails.
  void End() { active_ = false; }

  /// Notes a call. The way in which it fails; 0 = it works.
  int Strike(const char* name, int ways) {
    if (!active_) return 0;
    const size_t place = calls_.size();
    calls_.push_back({name, ways});
    if (onCall) onCall(name);
    for (const Failure& failure : failures_) {
      if (failure.call != place) continue;
      struck_.push_back({name, failure.way});
      return failure.way;
    }
    return 0;
  }

  std::function<void(const char* name)> onCall;  ///< hears of each call since Begin, before it is made

  /// The calls since Begin, in their order.
  const std::vector<Call>& Calls() const { return calls_; }

  /// The failures that have happened, each with the way in the place of the number of ways.
  const std::vector<Call>& Struck() const { return struck_; }

  bool HasStruck(std::string_view name) const {
    for (const Call& call : struck_)
      if (call.name == name) return true;
    return false;
  }

  /// The failures in words: "WSAStartup (way 2), closesocket (way 1)".
  std::string InWords() const {
    std::string words;
    for (const Call& call : struck_)
      words +=
          (words.empty() ? "" : ", ") + std::string(call.name) + " (way " + std::to_string(call.ways) + ")";
    return words;
  }

 private:
  std::vector<Failure> failures_;
  std::vector<Call> calls_;
  std::vector<Call> struck_;
  bool active_ = false;
};

/// What a failing library stands on.
template <typename Library>
class Failing : public Library {
 public:
  Failing(FailurePlan& plan, Library& library) : plan_(plan), library_(library) {}

 protected:
  /// What a library that lacks the call does.
  [[noreturn]] static void Lack(const char* call) {
    throw RuntimeError(L"The library has no call " + WidenAscii(call) + L".");
  }

  FailurePlan& plan_;
  Library& library_;
};

/// The handles that a library has given out and not taken back.
template <typename Handle>
class HandleLedger {
 public:
  Handle Give(Handle handle) {
    out_.push_back(handle);
    return handle;
  }
  void TakeBack(Handle handle) {
    for (size_t i = 0; i < out_.size(); ++i) {
      if (out_[i] != handle) continue;
      out_.erase(out_.begin() + static_cast<std::ptrdiff_t>(i));
      return;
    }
    ++strays_;
  }
  size_t Out() const { return out_.size(); }
  /// Handles that came back without being out.
  int Strays() const { return strays_; }

 private:
  std::vector<Handle> out_;
  int strays_ = 0;
};

}  // namespace tarvik::test
