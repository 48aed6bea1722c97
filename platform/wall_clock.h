#pragma once

#include <memory>
#include <string>

namespace tarvik {

/// The PC's clock as its user reads it.
class WallClock {
 public:
  virtual ~WallClock() = default;

  /// The present date and time in the system's general format: the short date, a blank, the time.
  virtual std::wstring GeneralDateTime() = 0;
};

/// The clock of this PC: GetLocalTime, GetDateFormat and GetTimeFormat in the user's locale.
std::unique_ptr<WallClock> MakeWallClock();

}  // namespace tarvik
