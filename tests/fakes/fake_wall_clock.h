#pragma once

#include <string>

#include "platform/wall_clock.h"

namespace tarvik::test {

/// A clock that stands still.
class FakeWallClock final : public WallClock {
 public:
  std::wstring GeneralDateTime() override { return now; }

  std::wstring now = L"2/3/2024 4:05:06 PM";
};

}  // namespace tarvik::test
