#pragma once

#include <string>

#include "platform/processes.h"
#include "report/message_boxes.h"

namespace tarvik {

/// Starts the command line with a normal, focused window. `program`: see Processes::Shell. A message box
/// reports a failure.
void StartProgram(Processes& processes, report::MessageBoxes& boxes, const std::wstring& commandLine,
                  const std::wstring& program = {});

}  // namespace tarvik
