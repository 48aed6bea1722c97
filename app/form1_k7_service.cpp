// The K7 Svc page, and the hidden mouse gesture that opens the services file.

#include "app/form1.h"
#include "k7/debug_launch.h"
#include "k7/start_program.h"
#include "platform/scope_guard.h"
#include "platform/text.h"
#include "report/fmt_err_msg.h"
#include "ui/hourglass.h"

namespace tarvik {
namespace {

ServiceEntry K7Entry() { return {L"NORVAX_K7_SERVER", 0, L"udp", false, false}; }

}  // namespace

void Form1::StartServiceControl() {
  if (productFamily_) return;
  svcUtl_ = std::make_unique<SvcUtl>(deps_.svcKit, FileUtil(deps_.kernel, deps_.version), deps_.form.Boxes(),
                                     deps_.pump, deps_.codePage);
  if (svcUtl_->mInitialize(languageMode_))
    deps_.form.Guarded([this] { lblK7ServerStatus_Click(); });
  else
    missing_.serviceSetup = true;
}

void Form1::EndServiceControl() {
  if (svcUtl_ == nullptr) return;
  svcUtl_->mTerminate();
  svcUtl_.reset();
}

void Form1::RunServiceCommand(bool& active, const K7ServiceCommand& command) {
  if (saving_ || svcUtl_ == nullptr || !svcUtl_->pInitialized()) return;
  active = true;
  const ScopeGuard done([&] { active = false; });
  const ScopeGuard hourglass = ui::ShowHourglass(deps_.form);
  command(context_, *svcUtl_, [this](int32_t status) { ShowK7ServiceState(status); });
}

void Form1::ShowK7ServiceState(int32_t status) {
  if (status == SvcUtl::pSvcCondRunning)
    controls_.lblK7ServerStatus.SetCaption(L"Running");
  else if (status == SvcUtl::pSvcCondStopped)
    controls_.lblK7ServerStatus.SetCaption(L"Stopped");
  deps_.pump.LetEventsRun();
}

// A click on Start or Stop is ignored while any service command is active. Debug and the status query are
// ignored only while one of these two is active: both are useful while Start or Stop waits. A test does not
// block any of them: the K7 API test shows what a restart of the service does.

void Form1::lblK7ServerStatus_Click() {
  if (queryingService_) return;
  RunServiceCommand(queryingService_, [](const auto&, SvcUtl& service, const auto& showState) {
    RefreshK7ServiceState(service, showState);
  });
}

void Form1::cmdStartStopK7Server_Click(int16_t index) {
  if (!ServiceBusy()) RunServiceCommand(changingService_, index == 1 ? StartK7Service : StopK7Service);
}

void Form1::cmdK7ServerDebug_Click() {
  if (queryingService_) return;
  RunServiceCommand(queryingService_, [this](const auto& context, SvcUtl& service, const auto&) {
    LaunchK7ServerDebug(context, service, deps_.processes, [this] { controls_.cmdStopK7Server.SetFocus(); });
  });
}

void Form1::lblK7UdpPortNo_MouseDown(int16_t button, int16_t shift) {
  if (button == ui::kLeftButton && shift == (ui::kCtrlHeld | ui::kAltHeld)) OpenServicesFileInEditor();
}

void Form1::OpenServicesFileInEditor() {
  // A bare name would start a notepad.exe planted next to this program.
  StartProgram(deps_.processes, deps_.form.Boxes(),
               L"notepad.exe " + deps_.windowsFolder + L"\\system32\\drivers\\etc\\services",
               deps_.windowsFolder + L"\\System32\\notepad.exe");
}

void Form1::tabMode_PageFront(int page) {
  if (page == kK7SvcPage) CheckK7ServicesEntry();
}

void Form1::CheckK7ServicesEntry() {
  if (!controls_.tabMode.PageOn(kK7SvcPage)) return;
  ServiceEntry entries[] = {K7Entry()};
  FmtErrMsg errors(deps_.kernel, deps_.codePage, deps_.form.Boxes());
  CheckServicesFile(deps_.files, deps_.codePage, errors, deps_.form.Boxes(), ServicesFile(), entries);
  ShowK7Port(entries[0]);
}

void Form1::Form_Activate() {
  if (controls_.tabMode.FrontPage() != kK7SvcPage) return;
  // The user may have just edited the file. No message box if it cannot be read: closing the box would
  // activate the window again, and so show the next box.
  ShowK7Port(ReadK7Entry());
}

ServiceEntry Form1::ReadK7Entry() {
  ServiceEntry entries[] = {K7Entry()};
  if (const std::optional<std::string> bytes = deps_.files.Read(ServicesFile()))
    ScanServices(*bytes, entries, deps_.codePage);
  return entries[0];
}

void Form1::ShowK7Port(const ServiceEntry& entry) {
  if (entry.NameExist && entry.PortNoExist) controls_.lblK7UdpPortNo.SetCaption(Decimal(entry.PortNo));
}

std::wstring Form1::ServicesFile() const {
  return deps_.windowsFolder + L"\\System32\\Drivers\\Etc\\Services";
}

}  // namespace tarvik
