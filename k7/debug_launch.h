#pragma once

#include <functional>

#include "k7/svc_utl.h"
#include "platform/processes.h"
#include "resources/messages.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What the debug launch takes.
struct DebugLaunchTools {
  SvcUtl& service;
  Processes& processes;
  ui::MessageBoxes& boxes;
  const Texts& texts;
  ui::Pump& pump;
  std::function<void()> focusStopButton;  ///< leads the user to the button that stops the service
};

/// Starts the K7 Server by hand, in its debug mode. Only while its service is known to be stopped: the two
/// would want the same port.
void LaunchK7ServerDebug(const DebugLaunchTools& tools);

}  // namespace tarvik
