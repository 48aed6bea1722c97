#pragma once

#include <cstdint>
#include <functional>

#include "k7/svc_utl.h"
#include "report/check_context.h"

namespace tarvik {

/// The K7 Server's name among the services of Windows.
inline constexpr wchar_t kK7Service[] = L"K7Server";

/// Shows a state of the service (SvcUtl's pSvcCond values) to the user.
using ShowServiceState = std::function<void(int32_t status)>;

/// Queries the service and shows its state. A failure has its message box.
void RefreshK7ServiceState(SvcUtl& service, const ShowServiceState& showState);

/// Starts the service, unless it runs already, and waits up to ten seconds for it. Every outcome has its
/// message box.
void StartK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState);

/// Stops the service, unless it is stopped already and if the user confirms it, and waits up to ten seconds
/// for it. Every outcome but a refusal has its message box.
void StopK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState);

}  // namespace tarvik
