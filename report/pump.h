#pragma once

#include <cstdint>
#include <functional>

namespace tarvik::report {

/// How a running test waits. Tests never sleep in any other way.
class Pump {
 public:
  virtual ~Pump() = default;

  /// Handles all pending window events.
  virtual void LetEventsRun() = 0;

  /// Waits until `over` returns true, at most `milliseconds`. Handles window events first and throughout, so
  /// that the window never freezes, and calls `over` each time. The end of the program ends every wait at
  /// once.
  virtual void SleepUntil(uint32_t milliseconds, const std::function<bool()>& over) = 0;

  /// Waits the whole time, even when a stop is requested. Otherwise like SleepUntil.
  void Sleep(uint32_t milliseconds) {
    SleepUntil(milliseconds, [] { return false; });
  }

  /// A clock that never goes back, in milliseconds.
  virtual uint64_t Milliseconds() const = 0;

  /// The user has asked the running test to stop, or the program is ending.
  virtual bool StopRequested() const = 0;
};

}  // namespace tarvik::report
