#pragma once

#include <cstdint>
#include <string>

#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// What the status of an echo reply means; empty for 0.
std::wstring EvaluatePingResponse(const uint32_t& status);

/// Sends `count` echoes to the host (dotted address or name), about one a second, and writes one line
/// each. True when at least one brought a reply record, whatever its status. The stop request ends it.
bool PingHost(const report::CheckContext& context, const NetLibraries& libraries, const std::wstring& host,
              int32_t count);

}  // namespace tarvik
