#pragma once

#include <vector>

#include "net/local_address_record.h"
#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// Runs the system's ipconfig through a batch file and reads what it prints; the way of Windows NT 4.0.
/// False, with an empty list, when the batch file cannot be written or started, when it does not finish
/// within 5.5 seconds (message box), or when the stop request is raised meanwhile.
bool GetIPConfig(const report::CheckContext& context, const NetLibraries& libraries,
                 std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
