#pragma once

#include <functional>

#include "report/pump.h"
#include "ui/win32/message_filter_win32.h"

namespace tarvik::ui {

class Win32Pump final : public report::Pump {
 public:
  /// `stopRequested`: true when the user has asked the running test to stop.
  Win32Pump(const MessageFilter& filter, std::function<bool()> stopRequested);

  void LetEventsRun() override;
  void SleepUntil(uint32_t milliseconds, const std::function<bool()>& over) override;
  uint64_t Milliseconds() const override;
  bool StopRequested() const override { return quitting_ || stopRequested_(); }

 private:
  const MessageFilter& filter_;
  std::function<bool()> stopRequested_;
  bool quitting_ = false;
};

}  // namespace tarvik::ui
