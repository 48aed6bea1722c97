#pragma once

#include "platform/processes.h"
#include "platform/system.h"
#include "report/message_boxes.h"

namespace tarvik {

/// Starts the system's information tool, which the registry names. A message box tells when there is none or
/// it does not start.
void StartSysInfo(System& system, Processes& processes, report::MessageBoxes& boxes);

}  // namespace tarvik
