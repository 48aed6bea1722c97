#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using ui::TaskbarState;

/// What the taskbar shows during and after a run.
class Form1TaskbarTest : public Form1Test {
 protected:
  Form1TaskbarTest() {
    Start();
    Address().SetText(L"192.168.1.100");
  }
};

TEST_F(Form1TaskbarTest, It_shows_a_run_after_ten_seconds) {
  Box(ID_txtPingReqCount).SetText(L"20");
  const uint64_t begin = pump.now;
  uint64_t shown = 0;
  onEvents = [&] {
    if (shown == 0 && form.taskbarState == TaskbarState::Running) shown = pump.now - begin;
  };
  Click(ID_cmdPing);
  EXPECT_GE(shown, 10000U);
  EXPECT_LE(shown, 10000U + FakePump::kEventIntervalMs);
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

TEST_F(Form1TaskbarTest, It_does_not_show_a_short_run_even_later) {
  onEvents = [&] { EXPECT_EQ(form.taskbarState, TaskbarState::None); };
  Click(ID_cmdPing);
  form.PassTime(20000);
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

TEST_F(Form1TaskbarTest, It_shows_a_failed_run_until_the_window_is_active) {
  Address().SetText(L"192.168.1.77");
  Click(ID_cmdPing);
  EXPECT_EQ(form.taskbarState, TaskbarState::Failed);
  form.Activate();
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

TEST_F(Form1TaskbarTest, It_does_not_show_a_stopped_run_as_failed) {
  onEvents = [&] { form.PressEscape(); };
  Click(ID_cmdAllTest);
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

TEST_F(Form1TaskbarTest, It_shows_a_run_that_throws_as_failed) {
  Box(ID_txtPingReqCount).SetText(L"many");
  Click(ID_cmdPing);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(form.taskbarState, TaskbarState::Failed);
}

TEST_F(Form1TaskbarTest, A_run_inside_another_leaves_it_to_the_outer_one) {
  Box(ID_txtPingReqCount).SetText(L"20");
  bool clicked = false;
  onEvents = [&] {
    if (form.taskbarState != TaskbarState::Running || std::exchange(clicked, true)) return;
    // Ends at once, because there is no K7 API library.
    Click(ID_cmdK7Api);
    EXPECT_EQ(form.taskbarState, TaskbarState::Running);
  };
  Click(ID_cmdPing);
  EXPECT_TRUE(clicked);
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

}  // namespace
}  // namespace tarvik::test
