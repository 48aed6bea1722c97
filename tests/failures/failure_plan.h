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

/// Decides which of a run's calls fail, and how. Every failing library asks the plan at each call.
class FailurePlan {
 public:
  struct Call {
    const char* name;
    int ways;  ///< number of ways in which it can fail
  };
  struct Failure {
    size_t call;  ///< index of the call in the run
    int way;      ///< from 1
  };

  /// Starts counting calls; these will fail.
  void Begin(std::vector<Failure> failures) {
    failures_ = std::move(failures);
    calls_.clear();
    failed_.clear();
    active_ = true;
  }
  /// Stops counting; no call fails any more.
  void End() { active_ = false; }

  /// Counts a call, which can fail in `ways` ways. Returns the way in which it must fail now; 0 = it
  /// succeeds.
  int WayToFail(const char* name, int ways) {
    if (!active_) return 0;
    const size_t place = calls_.size();
    calls_.push_back({name, ways});
    if (onCall) onCall(name);
    for (const Failure& failure : failures_) {
      if (failure.call != place) continue;
      failed_.push_back({name, failure.way});
      return failure.way;
    }
    return 0;
  }

  std::function<void(const char* name)> onCall;  ///< called before each call that is counted

  /// The calls since Begin, in order.
  const std::vector<Call>& Calls() const { return calls_; }

  /// The calls that failed. `ways` is the way in which each one did.
  const std::vector<Call>& Failed() const { return failed_; }

  bool HasFailed(std::string_view name) const {
    for (const Call& call : failed_)
      if (call.name == name) return true;
    return false;
  }

  /// The failures in words: "WSAStartup (way 2), closesocket (way 1)".
  std::string InWords() const {
    std::string words;
    for (const Call& call : failed_)
      words +=
          (words.empty() ? "" : ", ") + std::string(call.name) + " (way " + std::to_string(call.ways) + ")";
    return words;
  }

 private:
  std::vector<Failure> failures_;
  std::vector<Call> calls_;
  std::vector<Call> failed_;
  bool active_ = false;
};

/// Base of the failing libraries: forwards to `library` what the plan does not make fail.
template <typename Library>
class Failing : public Library {
 public:
  Failing(FailurePlan& plan, Library& library) : plan_(plan), library_(library) {}

 protected:
  /// Throws what the product throws when a library does not export the call.
  [[noreturn]] static void ThrowMissing(const char* call) {
    throw RuntimeError(L"The library does not export " + WidenAscii(call) + L".");
  }

  FailurePlan& plan_;
  Library& library_;
};

/// The handles that a library has opened and that were not closed yet.
template <typename Handle>
class HandleLedger {
 public:
  Handle Opened(Handle handle) {
    open_.push_back(handle);
    return handle;
  }
  void Closed(Handle handle) {
    for (size_t i = 0; i < open_.size(); ++i) {
      if (open_[i] != handle) continue;
      open_.erase(open_.begin() + static_cast<std::ptrdiff_t>(i));
      return;
    }
    ++strayCloses_;
  }
  size_t OpenCount() const { return open_.size(); }
  /// How often a handle was closed that was not open.
  int StrayCloses() const { return strayCloses_; }

 private:
  std::vector<Handle> open_;
  int strayCloses_ = 0;
};

}  // namespace tarvik::test
