#pragma once

#include <cstdint>
#include <functional>

#include "k7/svc_utl.h"
#include "report/check_context.h"

namespace tarvik {

/// Name of the K7 Server's Windows service.
inline constexpr wchar_t kK7Service[] = L"K7Server";

/// Shows the user a state of the service, one of SvcUtl's pSvcCond values.
using ShowServiceState = std::function<void(int32_t status)>;

/// Queries the service and shows its state. A message box reports a failure.
void RefreshK7ServiceState(SvcUtl& service, const ShowServiceState& showState);

/// Starts the service unless it is running, and waits up to ten seconds until it is. A message box reports
/// every outcome.
void StartK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState);

/// Stops the service unless it is stopped or the user declines, and waits up to ten seconds until it is. A
/// message box reports every outcome except a declined stop.
void StopK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState);

}  // namespace tarvik
