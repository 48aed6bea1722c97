#pragma once

#include <cstdint>
#include <string>

#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// The meaning of an echo reply's status; empty for 0.
std::wstring EvaluatePingResponse(const uint32_t& status);

/// Sends `count` echo requests to the host (dotted address or name), about one per second, and adds one line
/// for each. A host that cannot be resolved replaces the list with one line. True when at least one request
/// returned a reply record, whatever its status. Ends early when a stop is requested. `series`, a part of the
/// recorder's facts, receives what happened to each echo.
bool PingHost(const report::CheckContext& context, const NetLibraries& libraries, const std::wstring& host,
              int32_t count, report::EchoSeries& series);

}  // namespace tarvik
