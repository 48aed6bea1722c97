#pragma once

#include <vector>

#include "net/local_address_record.h"
#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// Gets the PC's addresses from the output of the system's ipconfig, run through a batch file. Used on
/// Windows NT 4.0. False, with an empty list, when the batch file cannot be written or started, does not
/// finish within 5.5 seconds (message box), or a stop is requested meanwhile.
bool GetIPConfig(const report::CheckContext& context, const NetLibraries& libraries,
                 std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
