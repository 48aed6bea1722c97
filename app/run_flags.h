#pragma once

#include "platform/boolean16.h"

namespace tarvik {

/// Shared by every test routine: a run is in progress, and the user has asked it to stop. They belong to the
/// outermost run and are both clear when none is active.
struct RunFlags {
  Boolean16 busy;
  Boolean16 stopRequested;
};

}  // namespace tarvik
