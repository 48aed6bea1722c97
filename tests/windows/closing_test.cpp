#include <optional>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kHistory[] = "Software\\NORVAX_FN_PingUtil\\History";

/// The main window, the PMC window and the about box, all open.
class Closing : public WindowsTest<Closing> {
 protected:
  void SetUp() override {
    WindowsTest::SetUp();
    if (IsSkipped()) return;
    Pc().DeleteRegistryKey(kHistory);
    // Saving moves the second address to "02".
    Pc().SetRegistryText(kHistory, "01", "10.1.1.1");
    Pc().SetRegistryText(kHistory, "03", "10.1.1.3");
  }
  static bool HistoryIsSaved() { return Pc().RegistryText(kHistory, "02") == "10.1.1.3"; }

  void OpenAll() {
    main_.emplace(Start());
    main_->Settle();
    main_->InvokeCommand(ID_mnuPMC);
    pmc_.emplace(Program().WaitForWindow("frmPmcTest"));
    pmc_->Settle();
    main_->InvokeCommand(ID_mnuHelpSub);
    about_.emplace(Program().WaitForWindow("frmAbout"));
    about_->Settle();
  }
  std::vector<WindowUnderTest> Windows() const { return {*main_, *pmc_, *about_}; }

  /// The message box about the missing system information tool.
  BoxUnderTest OpenMessageBoxOfAboutBox() {
    about_->Click(ID_cmdSysInfo);
    return Program().WaitForBox();
  }
  void ExpectDisabledAndOpen() {
    for (const WindowUnderTest& window : Windows()) {
      EXPECT_FALSE(window.Enabled(0)) << window.Text(0);
      window.Close();
    }
    for (const char* const name : {"Form1", "frmPmcTest", "frmAbout"}) {
      main_->Text(0);  // answered after the posted close requests
      EXPECT_TRUE(Program().HasWindow(name)) << name;
    }
    EXPECT_TRUE(Program().HasBox());
  }
  void AnswerAndExpectActive(const BoxUnderTest& box, const WindowUnderTest& owner) {
    EXPECT_EQ(WindowUnderTest(Pc(), box.handle).Owner(), owner.Handle());
    Program().Answer(box, BoxButton::Ok);
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return owner.InForeground(); }));
    for (const WindowUnderTest& window : Windows())
      EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(0); })) << window.Text(0);
  }
  void CloseAndExpectEnd() {
    main_->Close();
    EXPECT_EQ(Program().WaitForEnd(), 0u);
  }

  std::optional<WindowUnderTest> main_;
  std::optional<WindowUnderTest> pmc_;
  std::optional<WindowUnderTest> about_;
};

TEST_F(Closing, A_message_box_of_the_about_box_disables_all_windows_and_keeps_them_open) {
  OpenAll();
  const BoxUnderTest box = OpenMessageBoxOfAboutBox();
  ExpectDisabledAndOpen();
  AnswerAndExpectActive(box, *about_);
  CloseAndExpectEnd();
}

TEST_F(Closing, A_message_box_of_the_PMC_window_disables_all_windows_and_keeps_them_open) {
  OpenAll();
  main_->SetText(ID_txtTcpPortNo, "port");
  pmc_->BringToForeground();
  pmc_->Click(ID_cmdRead);
  const BoxUnderTest box = Program().WaitForBox();
  ExpectDisabledAndOpen();
  AnswerAndExpectActive(box, *pmc_);
  // The run refuses to end the program until it has ended itself.
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return pmc_->Enabled(ID_cmdRead); }));
  CloseAndExpectEnd();
}

TEST_F(Closing, A_message_box_of_the_main_window_disables_all_windows_and_keeps_them_open) {
  OpenAll();
  main_->BringToForeground();
  main_->SetFocus(ID_txtPingReqCount);
  main_->SetText(ID_txtPingReqCount, "-1");
  main_->Press("Tab");
  const BoxUnderTest box = Program().WaitForBox();
  ExpectDisabledAndOpen();
  AnswerAndExpectActive(box, *main_);
  main_->SetText(ID_txtPingReqCount, "1");
  CloseAndExpectEnd();
}

TEST_F(Closing, The_end_of_the_session_during_a_message_box_saves_the_history_and_keeps_the_windows) {
  OpenAll();
  const BoxUnderTest box = OpenMessageBoxOfAboutBox();
  EXPECT_TRUE(Program().SessionMayEnd());
  Program().EndSession();
  EXPECT_TRUE(HistoryIsSaved());
  AnswerAndExpectActive(box, *about_);
  about_->Click(ID_cmdOK);
  about_->WaitUntilGone();
  CloseAndExpectEnd();
}

TEST_F(Closing, The_end_of_the_session_ends_an_idle_program) {
  OpenAll();
  EXPECT_TRUE(Program().SessionMayEnd());
  Program().EndSession();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
  EXPECT_TRUE(HistoryIsSaved());
}

}  // namespace
}  // namespace tarvik::lab
