#pragma once

#include <functional>

#include "k7/svc_utl.h"
#include "platform/processes.h"
#include "report/check_context.h"

namespace tarvik {

/// Starts the K7 Server by hand, in its debug mode. Only while its service is known to be stopped: the two
/// would want the same port; otherwise `focusStopButton` leads the user to the button that stops the service.
void LaunchK7ServerDebug(const report::CheckContext& context, SvcUtl& service, Processes& processes,
                         const std::function<void()>& focusStopButton);

}  // namespace tarvik
