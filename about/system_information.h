#pragma once

#include "platform/processes.h"
#include "platform/system.h"
#include "report/message_boxes.h"

namespace tarvik {

/// Starts Windows' System Information tool, which is located through the registry. A message box reports when
/// the registry does not name it or it does not start.
void StartSysInfo(System& system, Processes& processes, report::MessageBoxes& boxes);

}  // namespace tarvik
