#pragma once

#include <cstdint>
#include <functional>

namespace tarvik::report {

/// The one way in which a running test waits.
class Pump {
 public:
  virtual ~Pump() = default;

  /// Lets every pending window event run.
  virtual void LetEventsRun() = 0;

  /// Waits until `over` returns true, at most this long. Window events run first and all the while, so that
  /// the window never freezes; `over` is asked each time they have run. The end of the program ends every
  /// wait at once.
  virtual void SleepUntil(uint32_t milliseconds, const std::function<bool()>& over) = 0;

  /// Waits the whole time, whatever the user asks for. Otherwise as SleepUntil.
  void Sleep(uint32_t milliseconds) {
    SleepUntil(milliseconds, [] { return false; });
  }

  /// The user has asked the running test to stop, or the program is about to end.
  virtual bool StopRequested() const = 0;
};

}  // namespace tarvik::report
