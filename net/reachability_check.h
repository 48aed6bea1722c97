#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// Checks step by step whether the target (host name or dotted address) can be reached: resolves it, compares
/// it with the PC's own subnets, pings a gateway when it is outside of them, then pings the target; `count`
/// echoes each. The first step that fails adds its lines and ends the check. A stop request also ends it,
/// without a verdict on what was not tried. Calls `addToHistory` once, when the target's address is known.
/// Adds to the result list, which the caller clears first. True when the target answered.
bool CheckReachability(const report::CheckContext& context, const NetLibraries& libraries,
                       const std::wstring& target, int32_t count, const std::function<void()>& addToHistory);

}  // namespace tarvik
