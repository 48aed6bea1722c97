#include "k7/debug_launch.h"

#include "k7/service_control.h"
#include "k7/start_program.h"

namespace tarvik {

void LaunchK7ServerDebug(const report::CheckContext& context, SvcUtl& service, Processes& processes,
                         const std::function<void()>& focusStopButton) {
  int32_t status = 0;
  if (service.mGetServiceStatus(kK7Service, status) && status == SvcUtl::pSvcCondStopped) {
    StartProgram(processes, context.boxes, std::wstring(kK7Service) + L" -debug");
    return;
  }
  focusStopButton();
  context.pump.LetEventsRun();
  if (const auto text = context.texts.Get(Message::K7MustBeStopped))
    context.boxes.Show(*text, report::BoxIcon::Exclamation);
}

}  // namespace tarvik
