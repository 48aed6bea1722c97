// Starting, stopping and closing during a run.

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

class Runs : public LabTest<Runs> {
 protected:
  /// Starts a run of 60 echoes to the controller on the PC's subnet; returns after the first reply.
  WindowUnderTest StartLongRun(const std::string& options = {}) {
    const WindowUnderTest window = Start(options + " -PING_N 60 " + kNearAddress);
    WaitForFirstEcho(window);
    return window;
  }

  static void WaitForFirstEcho(const WindowUnderTest& window) {
    ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window) && window.LineCount(ID_lstResult) >= 2; }));
  }

  Lines LinesOf(const WindowUnderTest& window) {
    return WithoutTimes(FollowRun(Program(), window, kRunTimeOut));
  }

  /// Starts the program without a run and types the target.
  WindowUnderTest StartWith(const std::string& target, int pings) {
    const WindowUnderTest window = Start("-PING_N " + std::to_string(pings) + " -X");
    window.SetText(ID_cmbIPAddr, target);
    window.SetFocus(ID_cmbIPAddr);
    return window;
  }
};

TEST_F(Runs, A_second_click_stops_the_run) {
  const WindowUnderTest window = StartLongRun();
  EXPECT_LE(window.MillisecondsFromClickTo(ID_cmdPing, "&Ping", kSoon), 350);
  const Lines lines = LinesOf(window);
  EXPECT_LT(lines.size(), 60u);
  EXPECT_EQ(lines.front(), "PING test...");
}

TEST_F(Runs, A_double_click_starts_a_run_once_and_a_later_click_stops_it) {
  const WindowUnderTest window = StartWith(kNearAddress, 60);
  window.DoubleClick(ID_cmdPing);
  WaitForFirstEcho(window);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) >= 3; }));
  EXPECT_TRUE(RunIsActive(window));
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
}

TEST_F(Runs, An_empty_count_field_does_not_block_a_click_on_Stop) {
  const WindowUnderTest window = StartLongRun();
  window.SetText(ID_txtPingReqCount, "");
  window.SetFocus(ID_txtPingReqCount);
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
  EXPECT_FALSE(Program().HasBox());
}

TEST_F(Runs, Tab_moves_from_an_empty_count_field_only_to_Stop) {
  const WindowUnderTest window = StartLongRun();
  window.SetText(ID_txtPingReqCount, "");
  window.SetFocus(ID_txtPingReqCount);
  window.Press("Tab");
  window.WaitForFocus(ID_cmdPing);
  EXPECT_FALSE(Program().HasBox());
  window.SetFocus(ID_txtPingReqCount);
  window.Press("Shift+Tab");
  Program().Answer(Program().WaitForBox(), BoxButton::Ok);
  window.WaitForFocus(ID_txtPingReqCount);
}

TEST_F(Runs, Every_button_that_starts_a_run_also_stops_it) {
  const WindowUnderTest window = StartLongRun();
  window.Click(ID_cmdAllTest);
  window.WaitForText(ID_cmdPing, "&Ping");
}

TEST_F(Runs, Esc_stops_the_run) {
  const WindowUnderTest window = StartLongRun();
  window.Press("Esc");
  window.WaitForText(ID_cmdPing, "&Ping");
}

TEST_F(Runs, A_stopped_run_does_not_stop_the_next_one) {
  const WindowUnderTest window = StartLongRun();
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
  window.SetText(ID_txtPingReqCount, "2");
  window.Click(ID_cmdPing);
  WaitForFirstEcho(window);
  EXPECT_EQ(LinesOf(window).back(), "0002 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64");
}

TEST_F(Runs, The_window_does_not_close_until_the_run_has_ended) {
  const WindowUnderTest window = StartLongRun();
  window.Close();
  window.Settle();
  EXPECT_TRUE(Program().HasWindow("Form1"));
  EXPECT_TRUE(RunIsActive(window));
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(Runs, During_a_runs_message_box_the_window_neither_closes_nor_starts_a_run) {
  const WindowUnderTest window = StartWith("cnc-9", 1);
  window.Click(ID_cmdPing);
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_EQ(box.text, "gethostbyname(cnc-9)=11001");
  EXPECT_FALSE(window.Enabled(0));
  window.Close();
  window.Click(ID_cmdPing);
  window.Click(ID_cmdAllTest);
  Program().Answer(box, BoxButton::Ok);
  window.WaitForText(ID_cmdPing, "&Ping");
  window.Settle();
  EXPECT_FALSE(Program().HasBox());
  EXPECT_TRUE(Program().HasWindow("Form1"));
  EXPECT_LE(window.LineCount(ID_lstResult), 2);
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(Runs, The_button_reads_Stop_while_the_pointer_is_an_hourglass) {
  const WindowUnderTest window = StartLongRun();
  EXPECT_EQ(window.Text(ID_cmdPing), "&Stop");
  EXPECT_TRUE(
      WaitUntil(kSoon, [&] { return window.CurrentPointer() == WindowUnderTest::Pointer::Hourglass; }));
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
  EXPECT_TRUE(
      WaitUntil(kSoon, [&] { return window.CurrentPointer() != WindowUnderTest::Pointer::Hourglass; }));
}

TEST_F(Runs, The_button_reads_Stop_in_Japanese) {
  const WindowUnderTest window = StartLongRun("-LOCALEID 1041");
  EXPECT_EQ(window.Text(ID_cmdPing), "停止(&S)");
  window.Press("Alt+S");
  window.WaitForText(ID_cmdPing, "&Ping");
}

TEST_F(Runs, Without_option_bits_a_target_on_the_command_line_is_only_pinged) {
  const WindowUnderTest window = Start("-PING_N 1 192.168.1.100");
  EXPECT_EQ(LinesOf(window),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
  EXPECT_EQ(window.StateOfTabs(ID_tabMode).front, 0);
  window.WaitForFocus(ID_cmdPing);
}

TEST_F(Runs, Enter_in_the_address_field_starts_one) {
  const WindowUnderTest window = StartWith(kNearAddress, 1);
  window.Press("Enter");
  EXPECT_EQ(LinesOf(window).size(), 2u);
}

TEST_F(Runs, Enter_with_Shift_Ctrl_or_Alt_starts_none) {
  const WindowUnderTest window = StartWith(kNearAddress, 1);
  for (const char* keys : {"Shift+Enter", "Ctrl+Enter", "Alt+Enter"}) {
    window.Press(keys);
    window.Settle();
    EXPECT_EQ(window.LineCount(ID_lstResult), 6) << keys;
  }
}

TEST_F(Runs, Text_typed_during_a_run_stays) {
  const WindowUnderTest window = StartLongRun();
  window.SetText(ID_cmbIPAddr, "");
  window.Type(ID_cmbIPAddr, "10.0.0.7");
  EXPECT_TRUE(RunIsActive(window));
  window.Press("Esc");
  window.WaitForText(ID_cmdPing, "&Ping");
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "10.0.0.7");
}

TEST_F(Runs, Resizing_and_minimising_during_a_run_loses_nothing) {
  const WindowUnderTest window = Start(std::string("-PING_N 4 ") + kNearAddress);
  WaitForFirstEcho(window);
  const ScreenRect outer = window.Rect(0);
  const ScreenRect list = window.Rect(ID_lstResult);
  window.Move({outer.left, outer.top, outer.width + 60, outer.height + 40});
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Rect(ID_lstResult).height == list.height + 40; }));
  window.Minimise();
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Minimised(); }));
  window.WaitForText(ID_cmdPing, "&Ping");
  window.Settle();
  EXPECT_TRUE(window.Minimised()) << "the end of the run restored the window";
  window.Restore();
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return !window.Minimised(); }));
  EXPECT_EQ(window.LineCount(ID_lstResult), 5);
  EXPECT_EQ(window.StateOfList(ID_lstResult).selected, 4);
  EXPECT_EQ(window.Rect(ID_lstResult).height, list.height + 40);
  EXPECT_EQ(window.Rect(ID_lstResult).width, list.width + 60);
}

TEST_F(Runs, A_run_rejects_the_end_of_the_Windows_session_and_survives_a_forced_one) {
  constexpr char kHistory[] = "Software\\NORVAX_FN_PingUtil\\History";
  Pc().DeleteRegistryKey(kHistory);
  const WindowUnderTest window = StartLongRun();
  EXPECT_FALSE(Program().SessionMayEnd());
  Program().EndSession();
  EXPECT_EQ(Pc().RegistryText(kHistory, "01"), kNearAddress);
  const int lines = window.LineCount(ID_lstResult);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) > lines; }));
  window.Press("Esc");
  window.WaitForText(ID_cmdPing, "&Ping");
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(Runs, A_count_of_zero_sends_nothing_and_reports_a_dead_target) {
  const WindowUnderTest window = StartWith(kNearAddress, 1);
  window.SetText(ID_txtPingReqCount, "0");
  window.Press("Enter");
  EXPECT_EQ(LinesOf(window), (Lines{"PING test...", "Cannot ping to the Target",
                                    "Please check Target's address, cable and power"}));
}

TEST_F(Runs, A_stop_during_the_gateways_ping_starts_no_other_step) {
  const WindowUnderTest window = Start(std::string("-PING_N 60 ") + kFarAddress);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) >= 8; }));
  window.Click(ID_cmdPing);
  window.WaitForText(ID_cmdPing, "&Ping");
  EXPECT_NE(window.Lines(ID_lstResult).back().find("Reply From 192.168.1.1:"), std::string::npos);
}

TEST_F(Runs, A_stop_during_a_dead_gateways_ping_still_reports_it) {
  Net().PullCable(Host::Gateway);
  const WindowUnderTest window = Start(std::string("-PING_N 60 ") + kFarAddress);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) >= 8; }));
  window.Click(ID_cmdPing);
  const Lines lines = LinesOf(window);
  EXPECT_LT(lines.size(), 20u);
  EXPECT_EQ(lines.back(), "Please check Gateway's address, cable and power");
}

}  // namespace
}  // namespace tarvik::lab
