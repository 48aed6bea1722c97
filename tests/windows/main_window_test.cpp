#include <algorithm>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kHistoryKey[] = "Software\\NORVAX_FN_PingUtil\\History";

class MainWindow : public WindowsTest<MainWindow> {};

TEST_F(MainWindow, Start_without_a_command_line_runs_nothing_and_reports_the_socket_layer) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> lines = window.Lines(ID_lstResult);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0].rfind("szDescription:", 0), 0u);
  EXPECT_EQ(lines[5], "-----");
  EXPECT_FALSE(RunIsActive(window));
}

TEST_F(MainWindow, The_list_scrolls_sideways_over_three_times_its_width) {
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.StateOfList(ID_lstResult).horizontalExtent, 3 * window.ClientRect(ID_lstResult).width);
}

TEST_F(MainWindow, The_family_edition_hides_the_K7_pages) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> captions = window.StateOfTabs(ID_tabMode).captions;
  for (const std::string& caption : captions) EXPECT_EQ(caption.find("K7"), std::string::npos) << caption;
}

TEST_F(MainWindow, Option_1_keeps_the_window_above_the_others) {
  EXPECT_FALSE(Start().Topmost());
  EXPECT_TRUE(Start("-X 1 -PING_N").Topmost());
}

TEST_F(MainWindow, Closing_ends_the_program) {
  Start().Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(MainWindow, The_window_cannot_be_made_smaller_than_it_came) {
  const WindowUnderTest window = Start();
  const ScreenRect first = window.Rect(0);
  window.Move({first.left, first.top, first.width - 60, first.height + 40});
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Rect(0).width == first.width; }));
  window.Move({first.left, first.top, first.width + 40, first.height - 60});
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Rect(0).height == first.height; }));
}

TEST_F(MainWindow, A_larger_window_grows_only_the_list) {
  const WindowUnderTest window = Start();
  const ScreenRect outer = window.Rect(0);
  const ScreenRect list = window.Rect(ID_lstResult);
  const ScreenRect button = window.Rect(ID_cmdPing);
  window.Move({outer.left, outer.top, outer.width + 70, outer.height + 50});
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const ScreenRect now = window.Rect(ID_lstResult);
    return now.width == list.width + 70 && now.height == list.height + 50;
  }));
  const ScreenRect after = window.Rect(ID_cmdPing);
  EXPECT_EQ(after.width, button.width);
  EXPECT_EQ(after.left - window.Rect(0).left, button.left - outer.left);
}

TEST_F(MainWindow, A_double_click_copies_the_list) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  std::string expected;
  for (const std::string& line : window.Lines(ID_lstResult)) expected += line + "\r\n";
  window.DoubleClick(ID_lstResult);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Pc().ClipboardText() == expected; }))
      << Pc().ClipboardText().value_or("(none)");
}

TEST_F(MainWindow, In_paste_mode_a_double_click_shows_the_copied_text) {
  const WindowUnderTest window = Start("-X 16");
  Pc().SetClipboardText("x\r\n日本語\r\n");
  window.DoubleClick(ID_lstResult);
  window.WaitForLine(ID_lstResult, "日本語", kSoon);
  EXPECT_EQ(window.Lines(ID_lstResult), (std::vector<std::string>{"x", "日本語", ""}));
}

TEST_F(MainWindow, The_address_box_takes_only_the_characters_of_a_host_name) {
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "");
  window.Type(ID_cmbIPAddr, "a_ :日.B-9");
  const std::string text = window.Text(ID_cmbIPAddr);
  EXPECT_EQ(text, "a.B-9");
}

TEST_F(MainWindow, A_negative_ping_count_keeps_the_focus_and_says_the_range) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_txtPingReqCount);
  window.SetText(ID_txtPingReqCount, "-1");
  window.Press("Tab");
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_EQ(box.text, "0 to 2147483647 is required");
  Program().Answer(box, BoxButton::Ok);
  window.WaitForFocus(ID_txtPingReqCount);
}

TEST_F(MainWindow, The_history_is_loaded_at_the_start_and_saved_at_the_end) {
  Pc().DeleteRegistryKey(kHistoryKey);
  Pc().SetRegistryText(kHistoryKey, "01", "10.1.1.1");
  Pc().SetRegistryText(kHistoryKey, "03", "10.1.1.3");
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr), (std::vector<std::string>{"10.1.1.1", "10.1.1.3"}));
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "10.1.1.1");
  window.Close();
  Program().WaitForEnd();
  EXPECT_EQ(Pc().RegistryText(kHistoryKey, "02"), "10.1.1.3");
}

TEST_F(MainWindow, An_active_run_refuses_to_close_and_a_second_click_stops_it) {
  const WindowUnderTest window = Start("-PING_N 60 127.0.0.1");
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window); }));
  window.Close();
  window.Settle();
  EXPECT_TRUE(Program().HasWindow("Form1"));
  EXPECT_LE(window.MillisecondsFromClickTo(ID_cmdPing, "&Ping", kSoon), 350);
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(MainWindow, Esc_stops_a_run) {
  const WindowUnderTest window = Start("-PING_N 60 127.0.0.1");
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window); }));
  window.Press("Esc");
  window.WaitForText(ID_cmdPing, "&Ping");
}

class JapaneseMainWindow : public WindowsTest<JapaneseMainWindow> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.language = WindowsLanguage::Japanese;
    options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
    return options;
  }
};

TEST_F(JapaneseMainWindow, The_captions_come_from_the_Japanese_language_file) {
  const WindowUnderTest window = Start();
  EXPECT_NE(window.Text(0).find("診断"), std::string::npos) << window.Text(0);
  EXPECT_EQ(window.Text(ID_cmdAllTest), "全ﾃｽﾄ(&A)");
}

}  // namespace
}  // namespace tarvik::lab
