#include "k7/debug_launch.h"

#include "k7/service_control.h"
#include "k7/start_program.h"

namespace tarvik {

void LaunchK7ServerDebug(const DebugLaunchTools& tools) {
  int32_t status = 0;
  if (tools.service.mGetServiceStatus(kK7Service, status) && status == SvcUtl::pSvcCondStopped) {
    StartProgram(tools.processes, tools.boxes, std::wstring(kK7Service) + L" -debug");
    return;
  }
  tools.focusStopButton();
  tools.pump.LetEventsRun();
  if (const auto text = tools.texts.Get(Message::K7MustBeStopped))
    tools.boxes.Show(*text, ui::BoxIcon::Exclamation);
}

}  // namespace tarvik
