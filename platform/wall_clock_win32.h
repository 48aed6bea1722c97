#pragma once

#include "platform/wall_clock.h"

namespace tarvik {

/// GetLocalTime, GetDateFormat and GetTimeFormat in the user's locale.
class Win32WallClock final : public WallClock {
 public:
  std::wstring GeneralDateTime() override;
};

}  // namespace tarvik
