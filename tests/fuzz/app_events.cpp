// A user who does anything at any time, also during a run whenever the program lets events run. Only what a
// user can do: disabled windows and buttons get no events.

#include <fuzzer/FuzzedDataProvider.h>

#include <vector>

#include "tests/fuzz/fuzzer.h"
#include "tests/fuzz/whole_program.h"

namespace {

using namespace tarvik;
using test::Require;

constexpr int kTexts[] = {ID_txtPingReqCount,   ID_txtNxlibTimeOut, ID_txtTcpPortNo, ID_txtAccessCode,
                          ID_txtK7ApiTestCount, ID_txtFtpUsername,  ID_txtFtpPasswd};
constexpr int kButtons[] = {ID_cmdPing,
                            ID_cmdAllTest,
                            ID_cmdGetInfo,
                            ID_cmdK7Api,
                            ID_cmdFtpConnect,
                            ID_cmdAllFtpTest,
                            ID_cmdStartStopK7Server_0,
                            ID_cmdStartStopK7Server_1,
                            ID_cmdK7ServerDebug};
constexpr int kPmcTexts[] = {ID_txtPmcStart, ID_txtPmcLen, ID_txtCount, ID_txtSleep};
constexpr int kMaxDepth = 6;  ///< events that are handled inside each other

class User {
 public:
  User(FuzzedDataProvider& input, test::WholeProgram& program) : input_(input), program_(program) {
    program_.onEvents = [this] { MaybeAct(); };
    program_.boxes.onShow = [this] { ActUnderBox(); };
  }

  /// True when the session has ended, and the window with it.
  bool ProgramHasEnded() const { return program_.form.unloaded; }

  void Act() {
    switch (input_.ConsumeIntegralInRange(0, 15)) {
      case 0:
      case 1:
      case 2:
        return Press(input_.PickValueInArray(kButtons));
      case 3:
        return TypeAddress();
      case 4:
        return Type(program_.form, input_.PickValueInArray(kTexts));
      case 5:
        return program_.form.PressEscape();
      case 6:
        return CloseWhileRunning();
      case 7:
        return ChangeTab();
      case 8:
        return program_.form.SetWindowSize({input_.ConsumeIntegralInRange(0, 2000), 300});
      case 9:
        return Open(ID_mnuPMC, pmc_);
      case 10:
        return Open(ID_mnuHelpSub, about_);
      case 11:
        return program_.List().DoubleClick();
      case 12:
        return ChangeAnswers();
      case 13:
        return program_.form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).SetChecked(input_.ConsumeBool());
      case 14:
        return EndSession();
      default:
        return ActOnOtherWindow();
    }
  }

 private:
  bool InputUsedUp() const { return input_.remaining_bytes() == 0; }

  /// At each pause. The user mostly waits, and stops everything when the input is used up.
  void MaybeAct() {
    if (InputUsedUp() || depth_ == kMaxDepth || !program_.form.Enabled()) return StopAll();
    if (input_.ConsumeIntegralInRange(0, 3) != 0) return;
    ++depth_;
    Act();
    --depth_;
  }

  /// While a message box is open all windows are disabled and do not close. The session may end.
  void ActUnderBox() {
    const std::vector<ui::MemoryForm*> windows = program_.screen.Forms();
    for (ui::MemoryForm* window : windows) Require(!window->Close() && !window->Enabled());
    if (!InputUsedUp() && input_.ConsumeBool()) EndSession();
    Require(program_.screen.Forms() == windows);
  }

  /// Windows asks first, but may end the session although the program refuses.
  void EndSession() {
    const bool agreed = program_.form.QueryEndSession();
    Require(!agreed || !program_.flags.busy);
    if (!agreed && input_.ConsumeBool()) return;
    program_.form.EndSession();
  }

  void StopAll() {
    if (program_.form.Enabled()) program_.form.PressEscape();
    if (IsOpen(pmc_)) pmc_->onEscape();
  }

  void Press(int id) {
    ui::MemoryButton& button = program_.Button(id);
    if (program_.form.Enabled() && button.Enabled() && button.Visible()) button.Click();
  }

  void TypeAddress() {
    program_.Address().SetText(input_.PickValueInArray<std::wstring>(
        {L"192.168.1.100", L"192.168.2.100", L"nobody", L"", L"host", L"1.2.3"}));
    if (input_.ConsumeBool() && program_.form.Enabled()) program_.Address().PressKey(13, 0);
  }

  void Type(ui::MemoryForm& form, int id) {
    form.Get<ui::MemoryTextBox>(id).SetText(input_.PickValueInArray<std::wstring>(
        {L"1", L"0", L"3", L"8193", L"", L"x", L"-1", L"99999999999", L"8000", L"32767"}));
  }

  void CloseWhileRunning() {
    if (!program_.flags.busy) return;
    Require(!program_.form.Close());
  }

  void ChangeTab() {
    const int page = input_.ConsumeIntegralInRange(0, 4);
    if (program_.Tabs().PageOn(page)) program_.Tabs().BringToFront(page);
  }

  void ChangeAnswers() {
    switch (input_.ConsumeIntegralInRange(0, 9)) {
      case 0:
        program_.icmp.hosts.clear();
        break;
      case 1:
        program_.icmp.AddHost("192.168.1.100");
        break;
      case 2:
        program_.cncLibrary.openResult = input_.PickValueInArray<int16_t>({0, 7, -103});
        break;
      case 3:
        program_.cncLibrary.readResult = input_.PickValueInArray<int16_t>({0, -16, -104});
        break;
      case 4:
        // Not during a test: a loaded library stays loaded.
        if (program_.Button(ID_cmdK7Api).Caption() != L"&Stop") program_.k7Api.missing = input_.ConsumeBool();
        break;
      case 5:
        program_.svcKit.missing = input_.ConsumeBool();
        break;
      case 6:
        program_.wininet.failing.insert(
            input_.PickValueInArray<std::string>({"InternetConnectA", "FtpFindFirstFileA"}));
        break;
      case 7:
        program_.clipboard.taken = input_.ConsumeBool();
        break;
      case 8:
        program_.boxes.answerYes = input_.ConsumeBool();
        break;
      default:
        program_.k7Api.goodChecks = input_.ConsumeIntegralInRange(0, 3);
        break;
    }
  }

  void Open(int menu, ui::MemoryForm*& window) {
    const size_t before = program_.newForms.size();
    program_.form.Get<ui::MemoryMenuItem>(menu).Click();
    if (program_.newForms.size() != before) window = program_.lastForm;
  }

  static bool IsOpen(const ui::MemoryForm* window) {
    return window != nullptr && !window->unloaded && window->Enabled();
  }

  void ActOnOtherWindow() {
    if (IsOpen(about_) && input_.ConsumeBool()) {
      about_->Get<ui::MemoryButton>(input_.ConsumeBool() ? ID_cmdOK : ID_cmdSysInfo).Click();
      return;
    }
    if (!IsOpen(pmc_)) return;
    ui::MemoryForm* const pmc = pmc_;
    const auto press = [pmc](int id) {
      auto& button = pmc->Get<ui::MemoryButton>(id);
      if (button.Enabled()) button.Click();
    };
    switch (input_.ConsumeIntegralInRange(0, 5)) {
      case 0:
        return Type(*pmc, input_.PickValueInArray(kPmcTexts));
      case 1:
        return press(ID_cmdStop);
      case 2:
        return press(ID_cmdClose);
      case 3:
        return pmc->onEscape();
      default:
        return press(ID_cmdRead);
    }
  }

  FuzzedDataProvider& input_;
  test::WholeProgram& program_;
  ui::MemoryForm* pmc_ = nullptr;
  ui::MemoryForm* about_ = nullptr;
  int depth_ = 0;
};

}  // namespace

TARVIK_FUZZER(app_events) {
  FuzzedDataProvider input(data, size);
  test::WholeProgram program;
  program.wininet.entries = {test::FakeWininet::File("a.txt", 5), test::FakeWininet::Directory("sub")};
  program.winsock.AddHost("host", {"192.168.1.100"});
  program.ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  program.Start(L"", input.ConsumeBool());
  {
    User user(input, program);
    while (input.remaining_bytes() > 0 && !user.ProgramHasEnded()) user.Act();
    program.boxes.onShow = nullptr;
    program.End();
  }
}
