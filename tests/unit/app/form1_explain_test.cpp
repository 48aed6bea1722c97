// What F1, a click on the status bar and F1 in a message box explain.

#include "report/finding_names.h"
#include "tests/unit/app/form1_explain_fixture.h"

namespace tarvik::test {
namespace {

TEST_F(Form1ExplainTest, Before_the_first_run_F1_says_how_to_begin) {
  Start();
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"Not tested yet"));
  EXPECT_EQ(Of(ui::ParagraphKind::Step),
            std::vector<std::wstring>{L"Type the CNC's address and press Enter."});
}

TEST_F(Form1ExplainTest, Until_the_user_moves_the_selection_F1_means_the_verdict_of_the_run) {
  Start();
  Ping(L"192.168.1.101");
  ASSERT_EQ(List().SelectedIndex(), List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115] Please check Target's address, cable and power / 通信先の"));
  EXPECT_EQ(Of(ui::ParagraphKind::Heading), (std::vector<std::wstring>{L"Do this now", L"What it means",
                                                                       L"Good so far", L"Who else to ask"}));
  EXPECT_TRUE(Says(L"0 of 4 echoes"));
  EXPECT_TRUE(Says(L"192.168.1.101"));
}

TEST_F(Form1ExplainTest, A_line_that_the_user_selects_is_explained_by_itself) {
  Start();
  Ping(L"192.168.1.101");
  List().ClickLine(LineOf(L"PING test..."));
  PressF1();
  EXPECT_FALSE(Title().starts_with(L"[115]"));
  List().ClickLine(LineOf(L"ICMP_Error:11010"));
  PressF1();
  EXPECT_TRUE(Says(L"0 of 4 echoes")) << "the finding of the run, not the number alone";
}

TEST_F(Form1ExplainTest, New_lines_move_the_selection_back_to_the_verdict) {
  Start();
  Ping(L"192.168.1.101");
  const int last = List().Count() - 1;
  List().ClickLine(last);
  Ping(L"192.168.1.101");
  ASSERT_EQ(List().SelectedIndex(), last);
  List().lines[static_cast<size_t>(last)] = L"PING test...";
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115]"));
}

TEST_F(Form1ExplainTest, Lines_that_another_program_put_into_the_list_were_not_selected_by_the_user) {
  Start();
  Ping(L"192.168.1.101");
  List().ClickLine(LineOf(L"PING test..."));
  List().Select(List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115]")) << "the selection was moved";
  const int line = LineOf(L"PING test...");
  List().ClickLine(line);
  List().lines[static_cast<size_t>(line)] = L"CNC Type\t31iB";
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115]")) << "the line was replaced";
}

TEST_F(Form1ExplainTest, Copying_keeps_the_line_that_the_user_selected) {
  Start();
  Ping(L"192.168.1.101");
  List().ClickLine(LineOf(L"PING test..."));
  List().DoubleClick();
  PressF1();
  EXPECT_FALSE(Title().starts_with(L"[115]"));
}

TEST_F(Form1ExplainTest, A_pasted_list_is_explained_without_the_numbers_of_this_run) {
  Start(L"-X 16 -PING_N 4");
  Ping(L"192.168.1.101");
  clipboard.text = L"ICMP_Error:11010\r\n\r\n";
  List().DoubleClick();
  List().ClickLine(0);
  PressF1();
  EXPECT_FALSE(Says(L"192.168.1.101"));
  EXPECT_FALSE(Says(L"of 4 echoes"));
  List().ClickLine(1);
  PressF1();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::TargetSilent))) << "the nearest line that fails a rung";
  EXPECT_FALSE(Says(L"192.168.1.101"));
}

TEST_F(Form1ExplainTest, An_empty_line_and_dashes_mean_the_nearest_failed_rung) {
  Start();
  Ping(L"192.168.1.101");
  cncLibrary.openResult = 7;
  cncLibrary.codeResult = 7;
  Click(ID_cmdGetInfo);
  List().AddItem(L"-----");
  ASSERT_TRUE(List().lines[static_cast<size_t>(LineOf(L"Get System Information test....")) - 1].empty());
  List().ClickLine(List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Says(L"On page NEXAL2, tick \"Access Code\"."));
  List().ClickLine(LineOf(L"Get System Information test....") - 1);
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115]")) << "the line above is nearer";
}

TEST_F(Form1ExplainTest, An_empty_line_just_above_a_failure_means_that_one_and_not_an_older_one) {
  Start(L"-X 16 -PING_N 4");
  clipboard.text = L"ICMP_Error:11010\r\nPING test...\r\nPING test...\r\n\r\n530 Login incorrect.\r\n";
  List().DoubleClick();
  List().ClickLine(3);
  PressF1();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::FtpLoginRefused)));
}

TEST_F(Form1ExplainTest, A_listing_means_the_nearest_failed_rung_and_without_one_itself) {
  Start();
  Ping(L"192.168.1.100", L"1");
  List().AddItem(L"O0001.NC                           1234");
  List().ClickLine(List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"A text that is not Tarvik's own"));
  List().AddItem(L"");
  List().ClickLine(List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::TargetGood))) << "an empty line means the verdict";
  Ping(L"192.168.1.101");
  List().AddItem(L"O0001.NC                           1234");
  List().ClickLine(List().Count() - 1);
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115]"));
}

TEST_F(Form1ExplainTest, A_rung_that_has_passed_since_is_not_the_nearest_failed_one) {
  Start();
  Ping(L"192.168.1.100", L"1");
  cncLibrary.openResult = 7;
  cncLibrary.codeResult = 7;
  Click(ID_cmdGetInfo);
  cncLibrary.openResult = 0;
  cncLibrary.codeResult = 0;
  Click(ID_cmdGetInfo);
  // The empty line before the second test; above it are the lines of the first one.
  const auto second =
      std::find(List().lines.rbegin(), List().lines.rend(), L"Get System Information test....");
  const auto empty = static_cast<int>(List().lines.rend() - second) - 2;
  ASSERT_TRUE(List().Item(empty).empty());
  List().ClickLine(empty);
  PressF1();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::CncGood)));
}

TEST_F(Form1ExplainTest, A_click_on_a_field_explains_its_rung_whatever_its_state) {
  kernel.paths.erase("NxLib32.dll");
  Start();
  const auto explains = [&](int field, report::Finding finding) {
    ClickField(field);
    EXPECT_TRUE(Says(MeaningOf(finding))) << report::NameOf(finding);
  };
  explains(3, report::Finding::NotTested);
  Ping(L"192.168.1.101");
  explains(0, report::Finding::NameIsAddress);
  explains(2, report::Finding::GatewayNotNeeded);
  explains(3, report::Finding::TargetSilent);
  EXPECT_TRUE(Title().starts_with(L"[115]"));
  explains(4, report::Finding::CncLibraryMissing);
  explains(5, report::Finding::NotInThisRun);
  Ping(L"192.168.1.100");
  explains(3, report::Finding::TargetGood);
}

TEST_F(Form1ExplainTest, F1_in_a_message_box_explains_the_box_in_a_window_that_can_be_used) {
  Start();
  PressF1();
  bool explained = false;
  boxes.onShow = [&] {
    form.PressHelpInBox(boxes.boxes.back().text);
    explained = Title().starts_with(L"A number is missing or out of range") && lastForm->Enabled();
    EXPECT_FALSE(form.Enabled());
  };
  Box(ID_txtPingReqCount).SetText(L"x");
  Box(ID_txtPingReqCount).SetFocus();
  form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing));
  EXPECT_TRUE(explained);
}

TEST_F(Form1ExplainTest, The_boxes_of_the_start_up_are_explained_too) {
  configuration.folderResult = 1;
  boxes.onShow = [&] { form.PressHelpInBox(boxes.boxes.back().text); };
  Start();
  ASSERT_EQ(boxes.Texts().at(0), L"GetCommonDataFolder2 Error");
  EXPECT_TRUE(Title().starts_with(L"The maker's software was not found"));
}

TEST_F(Form1ExplainTest, A_line_of_an_earlier_run_is_explained_without_the_numbers_of_this_one) {
  Start();
  const auto logIn = [this](const wchar_t* address, const char* reply) {
    wininet.replies = {reply};
    wininet.failing = {"InternetConnectA"};
    Address().Type(address);
    Click(ID_cmdFtpConnect);
  };
  logIn(L"192.168.1.100", "530 Login incorrect");
  logIn(L"192.168.1.101", "532 Account needed");
  List().ClickLine(LineOf(L"530 Login incorrect"));
  PressF1();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::FtpLoginRefused)));
  EXPECT_FALSE(Says(L"Reply"));
  List().ClickLine(LineOf(L"532 Account needed"));
  PressF1();
  EXPECT_TRUE(Says(L"Reply 532."));
}

TEST_F(Form1ExplainTest, During_a_run_F1_explains_and_the_run_goes_on) {
  Start();
  bool pressed = false;
  onEvents = [&] {
    if (std::exchange(pressed, true)) return;
    PressF1();
    EXPECT_TRUE(Says(MeaningOf(report::Finding::RunningTarget)));
  };
  Ping(L"192.168.1.101", L"3");
  EXPECT_EQ(std::count(List().lines.begin(), List().lines.end(), L"ICMP_Error:11010"), 3);
  EXPECT_TRUE(lastForm->Visible());
}

}  // namespace
}  // namespace tarvik::test
