#pragma once

#include <cstdint>
#include <functional>

#include "k7/svc_utl.h"
#include "resources/messages.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// The K7 Server's name among the services of Windows.
inline constexpr wchar_t kK7Service[] = L"K7Server";

/// What the user's commands to the K7 service take.
struct K7ServiceTools {
  SvcUtl& service;
  ui::MessageBoxes& boxes;
  const Texts& texts;
  ui::Pump& pump;
  std::function<void(int32_t status)> showState;  ///< shows a state of the service to the user
};

/// Queries the service and shows its state. A failure has its message box.
void RefreshK7ServiceState(const K7ServiceTools& tools);

/// Starts the service, unless it runs already, and waits up to ten seconds for it. Every outcome has its
/// message box.
void StartK7Service(const K7ServiceTools& tools);

/// Stops the service, unless it is stopped already and if the user confirms it, and waits up to ten seconds
/// for it. Every outcome but a refusal has its message box.
void StopK7Service(const K7ServiceTools& tools);

}  // namespace tarvik
