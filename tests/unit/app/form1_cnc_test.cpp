#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;
using Calls = std::vector<std::string>;

/// A started main window whose port and time-out come from the command line.
class Form1CncTest : public Form1Test {
 protected:
  Form1CncTest() { Start(L"-LANGID 1 -TCP_PORT 9000 -NXLIB_TMOUT 3"); }

  void ExpectIdle() {
    EXPECT_FALSE(flags.busy);
    EXPECT_FALSE(flags.stopRequested);
    EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
    EXPECT_TRUE(cncLibrary.AllGivenBack());
  }
  void OpenPmc() { form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click(); }
  ui::MemoryForm& Pmc() { return *lastForm; }
  void ClickPmc(int id) { Pmc().Get<ui::MemoryButton>(id).Click(); }
};

TEST_F(Form1CncTest, The_information_button_runs_the_library_test_with_the_values_in_the_window) {
  Address().SetText(L"192.168.1.100");
  bool closed = false;
  onEvents = [&] { closed = closed || form.Close(); };
  Click(ID_cmdGetInfo);
  EXPECT_FALSE(closed) << "the window closed during its own test";
  EXPECT_EQ(cncLibrary.calls[0], "nx_allochandle3(192.168.1.100, 9000, 3)");
  EXPECT_TRUE(Listed(L"CNC Type\t31iB"));
  EXPECT_TRUE(icmp.requests.empty());
  ExpectIdle();
}

TEST_F(Form1CncTest, The_access_code_is_used_only_when_its_check_box_is_checked) {
  Address().SetText(L"192.168.1.100");
  cncLibrary.openResult = 7;
  Box(ID_txtAccessCode).SetText(L"123");
  Click(ID_cmdGetInfo);
  form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).SetChecked(true);
  Click(ID_cmdGetInfo);
  EXPECT_TRUE(std::count(cncLibrary.calls.begin(), cncLibrary.calls.end(),
                         "nx_allochandle_code(192.168.1.100, 9000, 0, 3)"));
  EXPECT_TRUE(std::count(cncLibrary.calls.begin(), cncLibrary.calls.end(),
                         "nx_allochandle_code(192.168.1.100, 9000, 123, 3)"));
}

TEST_F(Form1CncTest, During_a_run_the_information_button_stops_it_and_starts_nothing) {
  Address().SetText(L"192.168.1.100");
  Box(ID_txtPingReqCount).SetText(L"1000");
  onEvents = [&] { Click(ID_cmdGetInfo); };
  Click(ID_cmdPing);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_TRUE(cncLibrary.calls.empty());
  ExpectIdle();
}

TEST_F(Form1CncTest, A_click_while_the_library_blocks_stops_that_test_and_starts_no_other) {
  Address().SetText(L"192.168.1.100");
  cncLibrary.openResult = -103;
  bool closed = false;
  cncLibrary.onCall = [&] {
    WhileBlocked([&] {
      Click(ID_cmdGetInfo);
      closed = form.Close();
    });
  };
  Click(ID_cmdGetInfo);
  DeliverQueued();
  EXPECT_EQ(cncLibrary.Count("nx_allochandle3"), 1);
  EXPECT_TRUE(Listed(L"Allocate Handle error=-103"));
  EXPECT_FALSE(closed);
  ExpectIdle();
}

TEST_F(Form1CncTest, A_click_queued_before_a_missing_call_throws_starts_no_test) {
  Address().SetText(L"192.168.1.100");
  cncLibrary.missing = {"nx_sysinfo"};
  bool closed = false;
  cncLibrary.onCall = [&] {
    WhileBlocked([&] {
      Click(ID_cmdPing);
      closed = form.Close();
    });
  };
  Click(ID_cmdGetInfo);
  DeliverQueued();
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_TRUE(icmp.requests.empty());
  EXPECT_FALSE(closed);
  ExpectIdle();
}

TEST_F(Form1CncTest, A_ping_cannot_start_inside_the_library_test) {
  Address().SetText(L"192.168.1.100");
  onEvents = [&] { Click(ID_cmdPing); };
  Click(ID_cmdGetInfo);
  EXPECT_TRUE(icmp.requests.empty());
  ExpectIdle();
}

TEST_F(Form1CncTest, A_missing_library_call_is_reported_and_everything_is_restored) {
  Address().SetText(L"192.168.1.100");
  cncLibrary.missing = {"nx_sysinfo"};
  Click(ID_cmdGetInfo);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  ExpectIdle();
}

TEST_F(Form1CncTest, The_ladder_continues_with_the_library_test) {
  Address().SetText(L"192.168.1.100");
  Click(ID_cmdAllTest);
  EXPECT_EQ(icmp.requests.size(), 4U);
  EXPECT_EQ(cncLibrary.Count("nx_sysinfo"), 1);
  ExpectIdle();
}

TEST_F(Form1CncTest, Without_test_bits_the_ladder_is_only_the_reachability_check) {
  Address().SetText(L"192.168.1.100");
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_TRUE(cncLibrary.calls.empty());
}

TEST_F(Form1CncTest, The_ladder_stops_at_a_target_that_does_not_answer) {
  Address().SetText(L"192.168.1.200");
  form1->SetOptionMask(kLibraryTest);
  EXPECT_FALSE(form1->RunAllTests());
  EXPECT_TRUE(cncLibrary.calls.empty());
}

TEST_F(Form1CncTest, The_ladder_fails_when_the_library_test_fails) {
  Address().SetText(L"192.168.1.100");
  form1->SetOptionMask(kLibraryTest | kK7ApiTest | kFtpTest);
  cncLibrary.infoResult = 6;
  EXPECT_FALSE(form1->RunAllTests());
  cncLibrary.infoResult = 0;
  EXPECT_TRUE(form1->RunAllTests());
  ExpectIdle();
}

TEST_F(Form1CncTest, A_stop_after_the_last_echo_prevents_the_next_rung) {
  Address().SetText(L"192.168.1.100");
  form1->SetOptionMask(kLibraryTest);
  onEvents = [&] {
    if (icmp.requests.size() == 4) flags.stopRequested = true;
  };
  EXPECT_FALSE(form1->RunAllTests());
  EXPECT_TRUE(cncLibrary.calls.empty());
  ExpectIdle();
}

TEST_F(Form1CncTest, A_stop_during_a_passing_rung_prevents_the_next_rung) {
  Address().SetText(L"192.168.1.100");
  form1->SetOptionMask(kLibraryTest | kK7ApiTest);
  cncLibrary.onCall = [&] { flags.stopRequested = true; };
  EXPECT_FALSE(form1->RunAllTests());
  EXPECT_EQ(cncLibrary.Count("nx_sysinfo"), 1);
  ExpectIdle();
}

TEST_F(Form1CncTest, A_missing_library_call_ends_the_ladder_and_everything_is_restored) {
  Address().SetText(L"192.168.1.100");
  cncLibrary.missing = {"nx_getoptions1"};
  Click(ID_cmdAllTest);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1CncTest, The_hidden_PMC_command_still_opens_its_window) {
  EXPECT_FALSE(form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Visible());
  EXPECT_TRUE(newForms.empty());
  OpenPmc();
  ASSERT_EQ(newForms.size(), 1U);
  EXPECT_EQ(newForms[0], L"frmPmcTest");
  EXPECT_TRUE(Pmc().Visible());
  EXPECT_FALSE(Pmc().topmost);
}

TEST_F(Form1CncTest, Only_one_PMC_window_opens_until_it_is_closed) {
  OpenPmc();
  OpenPmc();
  EXPECT_EQ(newForms.size(), 1U);
  ClickPmc(ID_cmdClose);
  OpenPmc();
  EXPECT_EQ(newForms.size(), 2U);
  EXPECT_TRUE(Pmc().Visible());
}

TEST_F(Form1CncTest, The_PMC_window_reads_from_the_controller_of_the_main_window) {
  OpenPmc();
  Address().SetText(L"cnc-1");
  ClickPmc(ID_cmdRead);
  EXPECT_EQ(cncLibrary.calls[0], "nx_allochandle3(cnc-1, 9000, 3)");
  EXPECT_EQ(cncLibrary.reads, 10);
}

TEST_F(Form1CncTest, During_a_PMC_read_the_main_window_cannot_close_but_its_tests_run) {
  Address().SetText(L"192.168.1.100");
  OpenPmc();
  cncLibrary.onRead = [&] {
    EXPECT_FALSE(form.Close());
    if (cncLibrary.reads == 2) Click(ID_cmdPing);
  };
  ClickPmc(ID_cmdRead);
  EXPECT_EQ(icmp.requests.size(), 4U);
  EXPECT_EQ(cncLibrary.reads, 10);
  ExpectIdle();
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1CncTest, Stopping_a_run_also_stops_a_PMC_read_started_inside_it) {
  Address().SetText(L"192.168.1.100");
  OpenPmc();
  onEvents = [&] {
    if (cncLibrary.reads == 0) ClickPmc(ID_cmdRead);
    if (cncLibrary.reads == 2) Click(ID_cmdPing);
  };
  Click(ID_cmdPing);
  EXPECT_EQ(cncLibrary.reads, 2);
  ExpectIdle();
}

TEST_F(Form1CncTest, Stopping_a_run_inside_a_PMC_read_does_not_stop_the_read) {
  Address().SetText(L"192.168.1.100");
  OpenPmc();
  cncLibrary.onRead = [&] {
    if (cncLibrary.reads == 2) Click(ID_cmdPing);
  };
  onEvents = [&] {
    if (icmp.requests.size() == 1 && flags.busy) Click(ID_cmdPing);
  };
  ClickPmc(ID_cmdRead);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_EQ(cncLibrary.reads, 10);
  ExpectIdle();
}

TEST_F(Form1CncTest, Shut_down_destroys_an_open_PMC_window) {
  OpenPmc();
  EXPECT_EQ(Existing(), 1);
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(Existing(), 0);
}

TEST_F(Form1CncTest, Shut_down_destroys_a_closed_PMC_window) {
  OpenPmc();
  ClickPmc(ID_cmdClose);
  EXPECT_EQ(Existing(), 1);
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(Existing(), 0);
}

TEST_F(Form1CncTest, A_session_end_during_a_PMC_read_does_not_destroy_its_window) {
  OpenPmc();
  Address().InsertItem(0, L"cnc");
  cncLibrary.onRead = [&] {
    EXPECT_FALSE(form.QueryEndSession());
    form.EndSession();
  };
  ClickPmc(ID_cmdRead);
  EXPECT_EQ(settings.values[L"History\\01"], L"cnc");
  EXPECT_EQ(cncLibrary.reads, 10);
  EXPECT_TRUE(Pmc().Close());
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1Test, Option_1_makes_the_PMC_window_topmost_too) {
  Start(L"-X 1 -LANGID 1");
  form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
  EXPECT_TRUE(lastForm->topmost);
}

TEST_F(Form1Test, The_option_bits_of_the_command_line_select_the_rungs_of_the_auto_run) {
  Start(L"-X 2 -LANGID 1 192.168.1.100");
  EXPECT_EQ(cncLibrary.Count("nx_sysinfo"), 1);
}

}  // namespace
}  // namespace tarvik::test
