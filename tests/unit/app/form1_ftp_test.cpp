#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1FtpTest : public Form1Test {
 protected:
  Form1FtpTest() {
    Start();
    form1->Results().ClearList();
    Address().SetText(L"192.168.1.100");
    Box(ID_txtFtpUsername).SetText(L"cnc");
    Box(ID_txtFtpPasswd).SetText(L"secret");
    wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
    wininet.entries = {FakeWininet::File("a.txt")};
  }

  void ExpectIdle() {
    EXPECT_FALSE(flags.busy);
    EXPECT_FALSE(flags.stopRequested);
    EXPECT_TRUE(form.Enabled());
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
    EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
    EXPECT_TRUE(wininet.open.empty());
  }

  size_t Connections() { return wininet.CallsOf("InternetConnectA").size(); }
};

TEST_F(Form1FtpTest, The_button_tests_the_address_with_the_pages_user_and_password) {
  Click(ID_cmdFtpConnect);
  EXPECT_EQ(wininet.CallsOf("InternetConnectA"),
            std::vector<std::string>{"InternetConnectA(192.168.1.100, 21, cnc, secret, 1, 0, 0)"});
  EXPECT_TRUE(Listed(L"230 logged in"));
  EXPECT_EQ(List().lines.back(), L"226 done");
  EXPECT_TRUE(icmp.requests.empty());
  ExpectIdle();
}

TEST_F(Form1FtpTest, Without_an_address_nothing_happens) {
  Address().SetText(L"");
  Click(ID_cmdFtpConnect);
  EXPECT_TRUE(wininet.calls.empty());
  EXPECT_TRUE(List().lines.empty());
  ExpectIdle();
}

TEST_F(Form1FtpTest, The_window_is_disabled_and_shows_the_hourglass_while_the_library_works) {
  int seen = 0;
  wininet.onCall = [&](const std::string& name) {
    if (name == "InternetOpenA") return;
    ++seen;
    EXPECT_FALSE(form.Enabled());
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Hourglass);
  };
  Click(ID_cmdFtpConnect);
  EXPECT_GT(seen, 0);
  ExpectIdle();
}

TEST_F(Form1FtpTest, During_the_test_no_second_one_starts_and_the_window_cannot_close) {
  bool closed = false;
  onEvents = [&] {
    EXPECT_TRUE(flags.busy);
    closed = closed || form.Close();
  };
  wininet.onCall = [&](const std::string&) {
    Click(ID_cmdFtpConnect);
    Click(ID_cmdAllFtpTest);
    closed = closed || form.Close();
  };
  Click(ID_cmdFtpConnect);
  EXPECT_FALSE(closed);
  EXPECT_EQ(wininet.CallsOf("InternetOpenA").size(), 1U);
  ExpectIdle();
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1FtpTest, A_click_while_the_connection_closes_starts_no_second_test) {
  bool closed = false;
  wininet.onCall = [&](const std::string& name) {
    if (name == "InternetOpenA") return;
    WhileBlocked([&] {
      // Windows delivers no clicks to a disabled window.
      if (form.Enabled()) Click(ID_cmdFtpConnect);
      closed = form.Close();
    });
  };
  Click(ID_cmdFtpConnect);
  DeliverQueued();
  EXPECT_EQ(Connections(), 1U);
  EXPECT_FALSE(closed);
  ExpectIdle();
}

TEST_F(Form1FtpTest, Secondary_windows_show_the_hourglass_too) {
  form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
  const ui::MemoryForm& pmc = *lastForm;
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  const ui::MemoryForm& about = *lastForm;
  int seen = 0;
  wininet.onCall = [&](const std::string& name) {
    if (name == "InternetOpenA") return;
    ++seen;
    EXPECT_EQ(pmc.CurrentPointer(), ui::Pointer::Hourglass) << name;
    EXPECT_EQ(about.CurrentPointer(), ui::Pointer::Hourglass) << name;
  };
  Click(ID_cmdFtpConnect);
  EXPECT_GT(seen, 0);
  EXPECT_EQ(pmc.CurrentPointer(), ui::Pointer::Default);
  EXPECT_EQ(about.CurrentPointer(), ui::Pointer::Default);
  ExpectIdle();
}

TEST_F(Form1FtpTest, During_another_run_the_button_stops_it) {
  Box(ID_txtPingReqCount).SetText(L"1000");
  onEvents = [&] { Click(ID_cmdFtpConnect); };
  Click(ID_cmdPing);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_EQ(Connections(), 0U);
  ExpectIdle();
}

TEST_F(Form1FtpTest, All_Test_checks_reachability_first) {
  Click(ID_cmdAllFtpTest);
  EXPECT_EQ(icmp.requests.size(), 4U);
  EXPECT_EQ(Connections(), 1U);
  EXPECT_EQ(List().lines.front(), L"PING test...");
  EXPECT_EQ(List().lines.back(), L"226 done");
  ExpectIdle();
}

TEST_F(Form1FtpTest, All_Test_does_not_connect_to_an_unreachable_target) {
  icmp.hosts.clear();
  Click(ID_cmdAllFtpTest);
  EXPECT_EQ(Connections(), 0U);
  ExpectIdle();
}

TEST_F(Form1FtpTest, All_Test_does_not_connect_after_a_stop_even_if_the_target_answered) {
  onEvents = [&] { form.PressEscape(); };
  Click(ID_cmdAllFtpTest);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_EQ(Connections(), 0U);
  EXPECT_TRUE(wininet.calls.empty());
  ExpectIdle();
}

TEST_F(Form1FtpTest, All_Test_is_a_single_run) {
  wininet.onCall = [&](const std::string& name) { EXPECT_TRUE(flags.busy) << name; };
  Click(ID_cmdAllFtpTest);
  ExpectIdle();
}

TEST_F(Form1FtpTest, A_missing_library_is_reported_and_everything_is_restored) {
  for (const char* call : {"InternetOpenA", "InternetConnectA", "FtpFindFirstFileA"}) {
    boxes.boxes.clear();
    wininet.throwing = call;
    Click(ID_cmdFtpConnect);
    ASSERT_EQ(boxes.boxes.size(), 1U) << call;
    EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
    ExpectIdle();
  }
}

TEST_F(Form1FtpTest, The_window_is_enabled_before_the_error_is_shown) {
  form.Show();
  wininet.throwing = "FtpFindFirstFileA";
  boxes.onShow = [&] { EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default); };
  Click(ID_cmdFtpConnect);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(screen.active, &form) << "the window was still disabled when the box was shown";
}

}  // namespace
}  // namespace tarvik::test
