#include "k7/service_control.h"

#include "platform/scope_guard.h"

namespace tarvik {
namespace {

constexpr int kMaxServicePolls = 40;
constexpr uint32_t kServicePollIntervalMs = 250;

/// Makes the service utility show its failures during one command. Commands can be nested, so the guard
/// restores the earlier setting.
auto ShowErrorBoxes(SvcUtl& service) {
  const Boolean16 before = service.pDispErrMsgBox();
  service.pDispErrMsgBox(true);
  return ScopeGuard([&service, before] { service.pDispErrMsgBox(before); });
}

void ShowMessage(const report::CheckContext& context, Message message) {
  if (const auto text = context.texts.Get(message)) context.boxes.Show(*text);
}

bool IsInState(SvcUtl& service, int32_t wanted) {
  int32_t status = 0;
  return service.mGetServiceStatus(kK7Service, status) && status == wanted;
}

bool WaitForState(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState,
                  int32_t wanted) {
  for (int i = 0; i < kMaxServicePolls; ++i) {
    if (IsInState(service, wanted)) {
      showState(wanted);
      return true;
    }
    context.pump.LetEventsRun();
    context.pump.Sleep(kServicePollIntervalMs);
  }
  return false;
}

}  // namespace

void RefreshK7ServiceState(SvcUtl& service, const ShowServiceState& showState) {
  int32_t status = 0;
  bool known = false;
  {
    const ScopeGuard restoreBoxes = ShowErrorBoxes(service);
    known = service.mGetServiceStatus(kK7Service, status);
  }
  if (known) showState(status);
}

void StartK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState) {
  const ScopeGuard restoreBoxes = ShowErrorBoxes(service);
  if (IsInState(service, SvcUtl::pSvcCondRunning)) {
    ShowMessage(context, Message::AlreadyRunning);
    return;
  }
  // The utility reports a failure itself; polling decides whether the service started anyway.
  service.mStartStopService(kK7Service, true);
  ShowMessage(context, Message::StartingService);
  context.pump.LetEventsRun();
  const bool running = WaitForState(context, service, showState, SvcUtl::pSvcCondRunning);
  ShowMessage(context, running ? Message::ServiceStarted : Message::CannotStartService);
}

void StopK7Service(const report::CheckContext& context, SvcUtl& service, const ShowServiceState& showState) {
  const ScopeGuard restoreBoxes = ShowErrorBoxes(service);
  if (IsInState(service, SvcUtl::pSvcCondStopped)) {
    ShowMessage(context, Message::AlreadyStopped);
    return;
  }
  if (!context.boxes.AskYesNo(context.texts.GetOrEmpty(Message::ConfirmStop), true)) return;
  service.mStartStopService(kK7Service, false);
  context.pump.LetEventsRun();
  const bool stopped = WaitForState(context, service, showState, SvcUtl::pSvcCondStopped);
  ShowMessage(context, stopped ? Message::ServiceStopped : Message::CannotStopService);
}

}  // namespace tarvik
