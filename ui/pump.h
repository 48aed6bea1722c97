#pragma once

#include <cstdint>

namespace tarvik::ui {

/// The one way in which a running test waits.
class Pump {
 public:
  virtual ~Pump() = default;

  /// Lets every pending window event run.
  virtual void LetEventsRun() = 0;

  /// Waits. Window events run meanwhile, so that the window never freezes; the wait is over early when the
  /// stop request is raised.
  virtual void Sleep(uint32_t milliseconds) = 0;

  /// The user has asked the running test to stop.
  virtual bool StopRequested() const = 0;
};

}  // namespace tarvik::ui
