// Which windows may close while a message box is open or a test runs, and what the end of the Windows session
// does at that moment.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

/// The main window, the PMC window and the about box, all open.
class Form1ClosingTest : public Form1Test {
 protected:
  Form1ClosingTest() {
    Start(L"-LANGID 1 -X 0", false);
    form.Show();
    pmc_ = OpenWindow(ID_mnuPMC);
    about_ = OpenWindow(ID_mnuHelpSub);
    boxes.boxes.clear();
    Address().InsertItem(0, L"cnc");
  }

  ui::MemoryForm* OpenWindow(int menuCommand) {
    form.Get<ui::MemoryMenuItem>(menuCommand).Click();
    return lastForm;
  }
  static void Click(ui::MemoryForm& window, int id) { window.Get<ui::MemoryButton>(id).Click(); }

  struct BoxOfWindow {
    ui::MemoryForm* owner;
    std::function<void()> provoke;
  };
  /// For each window, an action that makes it show a message box.
  std::vector<BoxOfWindow> BoxOfEachWindow() {
    return {{&form,
             [this] {
               Box(ID_txtPingReqCount).SetText(L"-1");
               form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing));
             }},
            {pmc_,
             [this] {
               cncLibrary.openResult = -103;
               Click(*pmc_, ID_cmdRead);
             }},
            {about_, [this] { Click(*about_, ID_cmdSysInfo); }}};
  }

  ui::MemoryForm* pmc_ = nullptr;
  ui::MemoryForm* about_ = nullptr;
};

TEST_F(Form1ClosingTest, While_any_window_shows_a_box_all_windows_are_disabled_and_none_closes) {
  for (const auto& [owner, provoke] : BoxOfEachWindow()) {
    ui::MemoryForm* seen = nullptr;
    boxes.onShow = [&] {
      seen = screen.boxOwner;
      for (ui::MemoryForm* window : screen.Forms()) {
        EXPECT_FALSE(window->Enabled());
        EXPECT_FALSE(window->Close());
      }
    };
    provoke();
    EXPECT_EQ(seen, owner);
    EXPECT_EQ(screen.active, owner);
    for (ui::MemoryForm* window : screen.Forms()) EXPECT_TRUE(window->Enabled());
  }
  EXPECT_EQ(boxes.boxes.size(), 3U);
  EXPECT_EQ(screen.Forms().size(), 3U);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1ClosingTest, A_session_end_while_a_box_is_open_saves_the_history_and_closes_no_window) {
  for (const auto& [owner, provoke] : BoxOfEachWindow()) {
    settings.values.clear();
    boxes.onShow = [&] {
      for (ui::MemoryForm* window : std::vector<ui::MemoryForm*>(screen.Forms())) window->EndSession();
    };
    provoke();
    EXPECT_EQ(settings.values[L"History\\01"], L"cnc");
    EXPECT_EQ(screen.Forms().size(), 3U);
    EXPECT_FALSE(form.unloaded);
  }
  EXPECT_EQ(boxes.boxes.size(), 3U);
  EXPECT_EQ(winsock.cleanups, 0);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1ClosingTest, The_session_may_end_while_a_box_outside_a_test_is_open) {
  int asked = 0;
  boxes.onShow = [&] {
    ++asked;
    EXPECT_TRUE(form.QueryEndSession());
  };
  Click(*about_, ID_cmdSysInfo);
  Box(ID_txtPingReqCount).SetText(L"-1");
  form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing));
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1ClosingTest, A_session_end_while_idle_shuts_the_program_down) {
  EXPECT_TRUE(form.QueryEndSession());
  form.EndSession();
  EXPECT_TRUE(form.unloaded);
  EXPECT_EQ(settings.values[L"History\\01"], L"cnc");
  EXPECT_EQ(winsock.startups, winsock.cleanups);
  EXPECT_EQ(icmp.closed.size(), 1U);
  EXPECT_EQ(screen.Forms(), std::vector<ui::MemoryForm*>{&form});
}

TEST_F(Form1ClosingTest, A_session_end_during_a_run_releases_nothing_the_run_uses) {
  Address().SetText(L"192.168.1.100");
  onEvents = [&] {
    EXPECT_FALSE(form.QueryEndSession());
    form.EndSession();
  };
  Form1Test::Click(ID_cmdPing);
  EXPECT_EQ(icmp.requests.size(), 4U);
  EXPECT_TRUE(icmp.closed.empty());
  EXPECT_EQ(winsock.startups - winsock.cleanups, 1);
  EXPECT_EQ(settings.values[L"History\\01"], L"192.168.1.100");
  EXPECT_TRUE(form.Close());
}

TEST(MemoryScreenTest, A_window_that_was_disabled_before_a_box_stays_disabled_after_it) {
  FakeBoxes boxes;
  ui::MemoryScreen screen(boxes);
  ui::MemoryForm owner(screen);
  ui::MemoryForm other(screen);
  owner.Show();
  other.SetEnabled(false);
  owner.Boxes().Show(L"box");
  EXPECT_TRUE(owner.Enabled());
  EXPECT_FALSE(other.Enabled());
}

TEST(MemoryScreenTest, A_box_that_throws_enables_the_windows_again) {
  FakeBoxes boxes;
  ui::MemoryScreen screen(boxes);
  ui::MemoryForm owner(screen);
  ui::MemoryForm other(screen);
  owner.Show();
  boxes.onShow = [] { throw RuntimeError(L"broken"); };
  EXPECT_THROW(owner.Boxes().Show(L"box"), RuntimeError);
  EXPECT_TRUE(owner.Enabled());
  EXPECT_TRUE(other.Enabled());
  EXPECT_EQ(screen.boxOwner, nullptr);
  EXPECT_EQ(screen.active, &owner);
}

}  // namespace
}  // namespace tarvik::test
