#pragma once

#include "platform/boolean16.h"

namespace tarvik {

/// State that all test routines share. Both flags are clear while no test is active.
struct RunFlags {
  Boolean16 busy;           ///< an outermost run is active
  Boolean16 stopRequested;  ///< the user has asked the active test to stop
};

}  // namespace tarvik
