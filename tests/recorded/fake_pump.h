#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "ui/pump.h"

namespace tarvik::test {

/// A pump with a clock of its own: a sleep moves it on and takes no time.
class FakePump final : public ui::Pump {
 public:
  void LetEventsRun() override {
    ++eventRounds;
    if (onEvents) onEvents();
  }

  void Sleep(uint32_t milliseconds) override {
    sleeps.push_back(milliseconds);
    const uint64_t end = now + milliseconds;
    const bool raisedMeanwhile = stopAt && *stopAt > now && *stopAt < end;
    if (!StopRequested()) now = raisedMeanwhile ? *stopAt : end;
    if (onEvents) onEvents();
  }

  bool StopRequested() const override { return stop || (stopAt && now >= *stopAt); }

  uint64_t now = 0;                ///< milliseconds since the test began
  bool stop = false;               ///< the user has asked to stop
  std::optional<uint64_t> stopAt;  ///< when the user will ask to stop
  std::function<void()> onEvents;  ///< window events that are pending at every pause
  int eventRounds = 0;             ///< calls of LetEventsRun
  std::vector<uint32_t> sleeps;    ///< the lengths asked for
};

}  // namespace tarvik::test
