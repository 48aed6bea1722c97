#pragma once

#include <string>
#include <vector>

#include "net/local_address_record.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What running the system's ipconfig takes.
struct IpconfigTools {
  Files& files;
  Processes& processes;
  CodePage& codePage;
  ui::MessageBoxes& boxes;
  ui::Pump& pump;
  const std::wstring& programFolder;  ///< where the batch file and its output are written for the while
};

/// Runs the system's ipconfig through a batch file and reads what it prints; the way of Windows NT 4.0.
/// False, with an empty list, when the batch file cannot be written or started, when it does not finish
/// within 5.5 seconds (message box), or when the stop request is raised meanwhile.
bool GetIPConfig(const IpconfigTools& tools, std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
