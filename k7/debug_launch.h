#pragma once

#include <functional>

#include "k7/svc_utl.h"
#include "platform/processes.h"
#include "report/check_context.h"

namespace tarvik {

/// Starts the K7 Server as a program in its debug mode, if its service is known to be stopped: both would
/// need the same UDP port. Otherwise moves the focus by `focusStopButton` to the button that stops the
/// service, and a message box explains why.
void LaunchK7ServerDebug(const report::CheckContext& context, SvcUtl& service, Processes& processes,
                         const std::function<void()>& focusStopButton);

}  // namespace tarvik
