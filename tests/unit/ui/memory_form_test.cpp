#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_boxes.h"
#include "ui/memory/memory_form.h"

namespace tarvik::ui {
namespace {

TEST(MemoryFormTest, A_timer_fires_once_when_its_time_has_passed) {
  MemoryForm form;
  int fired = 0;
  form.StartTimer(1, 3000, [&] { ++fired; });
  form.PassTime(2999);
  EXPECT_EQ(fired, 0);
  form.PassTime(1);
  EXPECT_EQ(fired, 1);
  form.PassTime(10000);
  EXPECT_EQ(fired, 1);
}

TEST(MemoryFormTest, Starting_a_running_timer_replaces_it) {
  MemoryForm form;
  std::wstring fired;
  form.StartTimer(1, 3000, [&] { fired += L"a"; });
  form.PassTime(2000);
  form.StartTimer(1, 3000, [&] { fired += L"b"; });
  form.PassTime(2999);
  EXPECT_EQ(fired, L"");
  form.PassTime(1);
  EXPECT_EQ(fired, L"b");
}

TEST(MemoryFormTest, Timers_fire_in_the_order_of_their_ends_and_may_start_again) {
  MemoryForm form;
  std::wstring fired;
  const auto again = [&] { fired += L"c"; };
  form.StartTimer(1, 30, [&] { fired += L"b"; });
  form.StartTimer(2, 20, [&] {
    fired += L"a";
    form.StartTimer(2, 20, again);
  });
  form.PassTime(40);
  EXPECT_EQ(fired, L"abc");
}

TEST(MemoryFormTest, A_stopped_timer_does_not_fire) {
  MemoryForm form;
  form.StartTimer(1, 10, [] { FAIL(); });
  form.StopTimer(1);
  form.StopTimer(2);
  form.PassTime(20);
}

TEST(MemoryFormTest, An_error_in_a_timer_is_shown_in_a_box) {
  test::FakeBoxes boxes;
  MemoryScreen screen(boxes);
  MemoryForm form(screen);
  form.StartTimer(1, 10, [] { throw RuntimeError(L"no memory"); });
  form.PassTime(10);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"no memory"});
}

TEST(MemoryFormTest, The_taskbar_shows_a_failure_until_the_window_is_active) {
  test::FakeBoxes boxes;
  MemoryScreen screen(boxes);
  MemoryForm form(screen);
  form.SetTaskbarState(TaskbarState::Failed);
  EXPECT_EQ(form.taskbarState, TaskbarState::Failed);
  form.Activate();
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
  form.Show();
  form.SetTaskbarState(TaskbarState::Failed);
  EXPECT_EQ(form.taskbarState, TaskbarState::None);
}

TEST(MemoryFormTest, A_click_on_a_field_of_the_status_bar_names_the_field) {
  MemoryForm form;
  StatusBar& bar = form.AddStatusBar(7, 3);
  int clicked = -1;
  bar.onFieldClick = [&](int field) { clicked = field; };
  form.Get<MemoryStatusBar>(7).ClickField(2);
  EXPECT_EQ(clicked, 2);
  EXPECT_EQ(bar.FieldCount(), 3);
}

}  // namespace
}  // namespace tarvik::ui
