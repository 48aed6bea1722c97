#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "report/pump.h"

namespace tarvik::test {

/// A pump with a clock of its own: a wait moves it on and takes no time. As in a real window, events run at
/// the begin of a wait, several times during a long one, and at its end.
class FakePump final : public report::Pump {
 public:
  void LetEventsRun() override {
    ++eventRounds;
    if (onEvents) onEvents();
  }

  void SleepUntil(uint32_t milliseconds, const std::function<bool()>& over) override {
    sleeps.push_back(milliseconds);
    const uint64_t end = now + milliseconds;
    for (;;) {
      if (onEvents) onEvents();
      if (now >= end || ending || over()) return;
      uint64_t next = std::min(end, now + kBetweenEvents);
      if (stopAt && *stopAt > now) next = std::min(next, *stopAt);
      now = next;
    }
  }

  bool StopRequested() const override { return stop || ending || (stopAt && now >= *stopAt); }

  static constexpr uint64_t kBetweenEvents = 250;  ///< milliseconds between two rounds of events in a wait

  uint64_t now = 0;                ///< milliseconds since the test began
  bool stop = false;               ///< the user has asked to stop
  bool ending = false;             ///< the program is about to end
  std::optional<uint64_t> stopAt;  ///< when the user will ask to stop
  std::function<void()> onEvents;  ///< window events that are pending at every pause
  int eventRounds = 0;             ///< calls of LetEventsRun
  std::vector<uint32_t> sleeps;    ///< the lengths asked for
};

}  // namespace tarvik::test
