#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// Finds out, step by step, whether the target (host name or dotted address) can be reached: resolves it,
/// compares it with the PC's own subnets, pings a gateway when it lies outside of them, then pings the
/// target, `count` echoes each. The first step that fails ends the check with its lines. The stop request
/// ends it too; what was not tried is not judged. `addToHistory` is called once, when the target has an
/// address. True when the target answered.
/// The lines are added to the result list; the caller empties it first.
bool CheckReachability(const report::CheckContext& context, const NetLibraries& libraries,
                       const std::wstring& target, int32_t count, const std::function<void()>& addToHistory);

}  // namespace tarvik
