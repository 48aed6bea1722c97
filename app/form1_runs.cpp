// Test runs: how a button or the command line starts one, and what is restored when it ends.

#include <limits>

#include "app/address_history.h"
#include "app/form1.h"
#include "ftp/ftp_check.h"
#include "ftp/ftp_client.h"
#include "net/port_look.h"
#include "net/reachability_check.h"
#include "net/tcp_ip_host.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "platform/text.h"
#include "report/typed_numbers.h"
#include "ui/hourglass.h"

namespace tarvik {
namespace {

constexpr int kLongRunMs = 10000;

/// What the Ping check tests.
const std::vector<report::Rung> kPingRungs = {report::Rung::Name, report::Rung::Pc, report::Rung::Gateway,
                                              report::Rung::Target};

}  // namespace

bool Form1::RunOutermost(const std::vector<report::Rung>& rungs, const std::function<bool()>& routine) {
  if (deps_.flags.busy) {
    deps_.flags.stopRequested = true;
    return false;
  }
  if (saving_) return false;
  // Inside a K7 API test that its button started, a stop request also stops that test, so keep it.
  const auto setFlags = [this](bool busy) { deps_.flags = {busy, k7ApiBusy_ && deps_.flags.stopRequested}; };
  setFlags(true);
  const ScopeGuard end([&] {
    setFlags(false);
    controls_.cmdPing.causesValidation = true;
    try {
      controls_.cmdPing.SetCaption(RowOf(Message::PingButton).english);
    } catch (const RuntimeError&) {
      // An exception that left this guard would end the program.
    }
  });
  controls_.cmdPing.SetCaption(texts_.GetOrEmpty(Message::StopButton));
  controls_.cmdPing.causesValidation = false;
  return ShowOnTaskbar([&] { return RunThenDrainEvents([&] { return Recorded(rungs, routine); }); });
}

bool Form1::ShowOnTaskbar(const std::function<bool()>& run) {
  if (shownOnTaskbar_) return run();
  shownOnTaskbar_ = true;
  deps_.form.StartTimer(kLongRunTimer, kLongRunMs,
                        [this] { deps_.form.SetTaskbarState(ui::TaskbarState::Running); });
  bool passed = false;
  const ScopeGuard end([&] {
    shownOnTaskbar_ = false;
    deps_.form.StopTimer(kLongRunTimer);
    const bool failed = !passed && !deps_.flags.stopRequested;
    deps_.form.SetTaskbarState(failed ? ui::TaskbarState::Failed : ui::TaskbarState::None);
  });
  passed = run();
  return passed;
}

bool Form1::RunThenDrainEvents(const std::function<bool()>& test) {
  bool passed = false;
  try {
    passed = test();
  } catch (...) {
    deps_.pump.LetEventsRun();
    throw;
  }
  deps_.pump.LetEventsRun();
  return passed;
}

bool Form1::RunReachabilityCheck() {
  const ScopeGuard hourglass = ui::ShowHourglass(deps_.form);
  results_.ClearList();
  const int32_t count =
      report::ToInt32(controls_.txtPingReqCount.Text(), controls_.lblPingReqCount.Caption());
  return CheckReachability(context_,
                           {deps_.winsock, deps_.icmp, icmpHandle_, deps_.ipHelper, deps_.system, deps_.files,
                            deps_.processes, deps_.codePage, deps_.programFolder},
                           controls_.cmbIPAddr.Text(), count,
                           [this] { AddHistoryIfNew(controls_.cmbIPAddr); });
}

void Form1::SetBusy(bool busy) {
  deps_.form.SetEnabled(!busy);
  const ui::Pointer pointer = busy ? ui::Pointer::Hourglass : ui::Pointer::Default;
  deps_.form.SetPointer(pointer);
  if (about_ != nullptr) about_->SetPointer(pointer);
  if (pmcTest_ != nullptr) pmcTest_->SetPointer(pointer);
  if (explain_ != nullptr) explain_->SetPointer(pointer);
}

bool Form1::RunFtpTest() {
  if (missing_.internet) {
    recorder_.run.facts.ftp = {};
    recorder_.run.facts.ftp.progress = report::Progress::Ended;
    recorder_.run.facts.ftp.libraryMissing = true;
    return true;
  }
  const std::wstring address = controls_.cmbIPAddr.Text();
  const std::wstring user = controls_.txtFtpUsername.Text();
  const std::wstring password = controls_.txtFtpPasswd.Text();
  // They may have been typed while the run was active.
  KeepSecrets();
  recorder_.AddressUsed(report::Rung::Ftp, address);
  recorder_.run.settings.ftpUserSet = !user.empty();
  recorder_.run.settings.ftpPasswordSet = !password.empty();
  const bool passed = TestFtp(
      context_, deps_.wininet, deps_.codePage, deps_.system, [this](bool busy) { SetBusy(busy); }, address,
      user, password);
  report::FtpFacts& facts = recorder_.run.facts.ftp;
  // A server that replied has already proven that its port is open.
  if (!passed && facts.loginReply.empty()) LookAtPort(address, clsFtpClient::kDefaultPort, facts.portAnswer);
  return passed;
}

void Form1::LookAtPort(std::wstring address, int32_t port, report::PortAnswer& answer) {
  const report::NameFacts& name = recorder_.run.facts.name;
  // Only a name that the Ping check has resolved: a look-up can block.
  if (!TcpIpHost::IsIpAddr(address)) address = name.typed == address ? name.address : std::wstring();
  if (address.empty() || port <= 0 || port > std::numeric_limits<uint16_t>::max()) return;
  const ScopeGuard hourglass = ui::ShowHourglass(deps_.form);
  const uint32_t number = deps_.winsock.inet_addr(NarrowAscii(address).c_str());
  answer = AskPort(deps_.winsock, deps_.pump, number, static_cast<uint16_t>(port)).answer;
  recorder_.Changed();
}

bool Form1::RunIfSelected(OptionBit bit, bool (Form1::*test)()) {
  if (deps_.flags.stopRequested) return false;
  return !TestOptionMask(bit) || (this->*test)();
}

bool Form1::RunAllTests() {
  std::vector<report::Rung> rungs = kPingRungs;
  if (TestOptionMask(kLibraryTest)) rungs.push_back(report::Rung::CncLibrary);
  if (!IsOptionMask_HideK7Test() && TestOptionMask(kK7ApiTest)) rungs.push_back(report::Rung::K7);
  if (TestOptionMask(kFtpTest)) rungs.push_back(report::Rung::Ftp);
  return RunOutermost(rungs, [this] {
    return RunReachabilityCheck() && RunIfSelected(kLibraryTest, &Form1::RunLibraryTest) &&
           (IsOptionMask_HideK7Test() || RunIfSelected(kK7ApiTest, &Form1::RunK7ApiTest)) &&
           RunIfSelected(kFtpTest, &Form1::RunFtpTest);
  });
}

void Form1::cmdPing_Click() {
  RunOutermost(kPingRungs, [this] { return RunReachabilityCheck(); });
}

void Form1::cmdAllTest_Click() {
  SetOptionMask(productFamily_ ? kLibraryTest : kLibraryTest | kK7ApiTest);
  RunAllTests();
}

void Form1::cmdFtpConnect_Click() {
  RunOutermost({report::Rung::Ftp}, [this] { return RunFtpTest(); });
}

void Form1::cmdAllFtpTest_Click() {
  std::vector<report::Rung> rungs = kPingRungs;
  rungs.push_back(report::Rung::Ftp);
  RunOutermost(rungs,
               [this] { return RunReachabilityCheck() && !deps_.pump.StopRequested() && RunFtpTest(); });
}

}  // namespace tarvik
