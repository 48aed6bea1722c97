#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class MainWindow : public WindowsTest<MainWindow> {};

TEST_F(MainWindow, Without_a_command_line_it_reports_the_socket_library_and_runs_nothing) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> lines = window.Lines(ID_lstResult);
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0].rfind("szDescription:", 0), 0u);
  EXPECT_EQ(lines[5], "-----");
  EXPECT_FALSE(RunIsActive(window));
}

TEST_F(MainWindow, The_list_scrolls_horizontally_over_three_times_its_width) {
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.StateOfList(ID_lstResult).horizontalExtent, 3 * window.ClientRect(ID_lstResult).width);
}

TEST_F(MainWindow, Option_1_makes_the_window_topmost) {
  EXPECT_FALSE(Start().Topmost());
  EXPECT_TRUE(Start("-X 1 -PING_N").Topmost());
}

TEST_F(MainWindow, Closing_it_ends_the_program) {
  Start().Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(MainWindow, Its_initial_size_is_its_minimum) {
  const WindowUnderTest window = Start();
  const ScreenRect first = window.Rect(0);
  // The other dimension shows that the move was handled.
  const auto becomes = [&](int width, int height) {
    return WaitUntil(kSoon, [&] {
      const ScreenRect now = window.Rect(0);
      return now.width == width && now.height == height;
    });
  };
  window.Move({first.left, first.top, first.width - 60, first.height + 40});
  EXPECT_TRUE(becomes(first.width, first.height + 40));
  window.Move({first.left, first.top, first.width + 40, first.height - 60});
  EXPECT_TRUE(becomes(first.width + 40, first.height));
}

TEST_F(MainWindow, Resizing_grows_only_the_list) {
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

TEST_F(MainWindow, The_address_field_accepts_only_the_characters_of_host_names) {
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "");
  window.Type(ID_cmbIPAddr, "a_ :日.B-9");
  const std::string text = window.Text(ID_cmbIPAddr);
  EXPECT_EQ(text, "a.B-9");
}

TEST_F(MainWindow, A_negative_ping_count_keeps_the_focus_and_shows_the_valid_range) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_txtPingReqCount);
  window.SetText(ID_txtPingReqCount, "-1");
  window.Press("Tab");
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_EQ(box.text, "0 to 2147483647 is required");
  Program().Answer(box, BoxButton::Ok);
  window.WaitForFocus(ID_txtPingReqCount);
}

}  // namespace
}  // namespace tarvik::lab
