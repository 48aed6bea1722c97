#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "report/pump.h"

namespace tarvik::test {

/// A pump with a simulated clock: a wait advances it and takes no real time. As in a real window, events are
/// handled at the start of a wait, several times during a long one, and at its end.
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
      uint64_t next = std::min(end, now + kEventIntervalMs);
      if (stopAt && *stopAt > now) next = std::min(next, *stopAt);
      now = next;
    }
  }

  uint64_t Milliseconds() const override { return now; }

  bool StopRequested() const override { return stop || ending || (stopAt && now >= *stopAt); }

  static constexpr uint64_t kEventIntervalMs = 250;

  uint64_t now = 0;                ///< milliseconds since the test started
  bool stop = false;               ///< the user has requested a stop
  bool ending = false;             ///< the program is ending
  std::optional<uint64_t> stopAt;  ///< when the user requests a stop
  std::function<void()> onEvents;  ///< the window events that each round handles
  int eventRounds = 0;             ///< calls of LetEventsRun
  std::vector<uint32_t> sleeps;    ///< durations of the waits, milliseconds
};

}  // namespace tarvik::test
