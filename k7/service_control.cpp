#include "k7/service_control.h"

namespace tarvik {
namespace {

constexpr int kServicePolls = 40;
constexpr uint32_t kPollMilliseconds = 250;

/// The message boxes of the service utility's failures: shown while one command of the user is carried out,
/// which may be inside another one.
class ErrorBoxes {
 public:
  explicit ErrorBoxes(SvcUtl& service) : service_(service), before_(service.pDispErrMsgBox()) {
    service_.pDispErrMsgBox(true);
  }
  ~ErrorBoxes() { service_.pDispErrMsgBox(before_); }
  ErrorBoxes(const ErrorBoxes&) = delete;
  ErrorBoxes& operator=(const ErrorBoxes&) = delete;

 private:
  SvcUtl& service_;
  Boolean16 before_;
};

void Tell(const K7ServiceTools& tools, Message message) {
  if (const auto text = tools.texts.Get(message)) tools.boxes.Show(*text);
}

bool IsSeenAs(const K7ServiceTools& tools, int32_t wanted) {
  int32_t status = 0;
  return tools.service.mGetServiceStatus(kK7Service, status) && status == wanted;
}

bool WaitFor(const K7ServiceTools& tools, int32_t wanted) {
  for (int i = 0; i < kServicePolls; ++i) {
    if (IsSeenAs(tools, wanted)) {
      tools.showState(wanted);
      return true;
    }
    tools.pump.LetEventsRun();
    tools.pump.Sleep(kPollMilliseconds);
  }
  return false;
}

}  // namespace

void RefreshK7ServiceState(const K7ServiceTools& tools) {
  int32_t status = 0;
  bool known = false;
  {
    const ErrorBoxes shown(tools.service);
    known = tools.service.mGetServiceStatus(kK7Service, status);
  }
  if (known) tools.showState(status);
}

void StartK7Service(const K7ServiceTools& tools) {
  const ErrorBoxes shown(tools.service);
  if (IsSeenAs(tools, SvcUtl::pSvcCondRunning)) {
    Tell(tools, Message::AlreadyRunning);
    return;
  }
  // Its failure has its own message box; whether the service runs all the same, the polling sees.
  tools.service.mStartStopService(kK7Service, true);
  Tell(tools, Message::StartingService);
  tools.pump.LetEventsRun();
  const bool running = WaitFor(tools, SvcUtl::pSvcCondRunning);
  Tell(tools, running ? Message::ServiceStarted : Message::CannotStartService);
}

void StopK7Service(const K7ServiceTools& tools) {
  const ErrorBoxes shown(tools.service);
  if (IsSeenAs(tools, SvcUtl::pSvcCondStopped)) {
    Tell(tools, Message::AlreadyStopped);
    return;
  }
  if (!tools.boxes.AskYesNo(tools.texts.Get(Message::ConfirmStop).value_or(std::wstring()), true)) return;
  tools.service.mStartStopService(kK7Service, false);
  tools.pump.LetEventsRun();
  const bool stopped = WaitFor(tools, SvcUtl::pSvcCondStopped);
  Tell(tools, stopped ? Message::ServiceStopped : Message::CannotStopService);
}

}  // namespace tarvik
