#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

/// The general edition, whose K7 pages live.
class Form1K7Test : public Form1Test {
 protected:
  Form1K7Test() {
    files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
    system.profile["C:\\Program\\Language\\Tarvik.exe_1033.ini|1033|17"] = "&Test";
  }
  void StartGeneral(const std::wstring& commandLine = L"") {
    Start(commandLine, false);
    Address().SetText(L"192.168.1.100");
    Box(ID_txtK7ApiTestCount).SetText(L"3");
    form1->Results().ClearList();
  }
  void ExpectIdle() {
    EXPECT_FALSE(flags.busy);
    EXPECT_FALSE(flags.stopRequested);
    EXPECT_EQ(Button(ID_cmdK7Api).Caption(), L"&Test");
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
    EXPECT_TRUE(k7Api.openHandles.empty());
    EXPECT_TRUE(form.Close());
  }
};

TEST_F(Form1K7Test, The_button_runs_the_test_and_offers_the_stop_under_an_hourglass) {
  StartGeneral();
  onEvents = [this] {
    EXPECT_EQ(Button(ID_cmdK7Api).Caption(), L"&Stop");
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Hourglass);
    EXPECT_FALSE(form.Close());
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(List().lines,
            (Lines{L"", L"K7Api test....", L"00001 Live=True", L"00002 Live=True", L"00003 Live=True"}));
  ExpectIdle();
}

TEST_F(Form1K7Test, A_count_that_is_no_number_gets_a_box_that_names_box_range_and_text) {
  StartGeneral(L"-LANGID 1");
  form.Get<ui::MemoryLabel>(ID_lblTestCount).SetCaption(L"Test &count:");
  Box(ID_txtK7ApiTestCount).SetText(L"ten");
  Click(ID_cmdK7Api);
  ASSERT_EQ(boxes.Texts().size(), 1U);
  const std::wstring text = boxes.Texts()[0];
  EXPECT_NE(text.find(L"\r\nTest count: 0 ... 2147483647\r\n"), std::wstring::npos);
  EXPECT_NE(text.find(L"\"ten\""), std::wstring::npos);
  ExpectIdle();
}

TEST_F(Form1K7Test, The_host_comes_from_the_command_line_and_is_this_PC_otherwise) {
  StartGeneral();
  form1->RunK7ApiTest();
  EXPECT_EQ(k7Api.connectedTo, "127.0.0.1");
}

TEST_F(Form1K7Test, The_host_of_the_command_line_is_connected_to) {
  StartGeneral(L"-K7SERVER_HOST 10.9.8.7 -PING_N");
  form1->RunK7ApiTest();
  EXPECT_EQ(k7Api.connectedTo, "10.9.8.7");
}

TEST_F(Form1K7Test, A_second_click_stops_it_at_the_end_of_the_second) {
  StartGeneral();
  onEvents = [this] {
    if (k7Api.checks.size() == 2 && !flags.stopRequested) Click(ID_cmdK7Api);
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(List().lines.back(), L"00002 Live=True");
  EXPECT_EQ(k7Api.checks.size(), 2U);
  ExpectIdle();
}

TEST_F(Form1K7Test, Esc_stops_it_too) {
  StartGeneral();
  onEvents = [this] { form.PressEscape(); };
  Click(ID_cmdK7Api);
  EXPECT_EQ(k7Api.checks.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1K7Test, It_runs_again_after_it_was_stopped) {
  StartGeneral();
  onEvents = [this] { form.PressEscape(); };
  Click(ID_cmdK7Api);
  onEvents = nullptr;
  Click(ID_cmdK7Api);
  EXPECT_EQ(k7Api.checks.size(), 4U);
  ExpectIdle();
}

TEST_F(Form1K7Test, Its_verdict_is_true_when_it_is_stopped_and_false_after_a_failure) {
  StartGeneral();
  EXPECT_TRUE(form1->RunK7ApiTest());
  k7Api.goodChecks = 0;
  EXPECT_FALSE(form1->RunK7ApiTest());
  ExpectIdle();
}

TEST_F(Form1K7Test, With_its_library_missing_at_the_start_it_passes_without_a_word) {
  kernel.paths.erase("k7api.dll");
  StartGeneral();
  EXPECT_TRUE(form1->RunK7ApiTest());
  EXPECT_TRUE(List().lines.empty());
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(k7Api.calls.empty());
}

TEST_F(Form1K7Test, A_library_without_a_version_is_not_missing) {
  StartGeneral();
  EXPECT_TRUE(form1->RunK7ApiTest());
  EXPECT_FALSE(k7Api.calls.empty());
}

TEST_F(Form1K7Test, An_empty_address_gives_an_empty_box_and_never_offers_the_stop) {
  StartGeneral();
  Address().SetText(L"");
  boxes.onShow = [this] {
    EXPECT_EQ(Button(ID_cmdK7Api).Caption(), L"&Test");
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(boxes.Texts(), Lines{L""});
  EXPECT_EQ(k7Api.calls, std::vector<std::string>{"K7_WSACleanup"});
  ExpectIdle();
}

TEST_F(Form1K7Test, A_failures_box_is_shown_while_the_test_still_runs) {
  StartGeneral();
  k7Api.connectResult = 0;
  boxes.onShow = [this] {
    EXPECT_EQ(Button(ID_cmdK7Api).Caption(), L"&Stop");
    EXPECT_FALSE(form.Close());
    Click(ID_cmdK7Api);
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1K7Test, A_library_that_cannot_be_used_is_told_in_the_standard_error_dialog) {
  StartGeneral();
  k7Api.missing = true;
  EXPECT_FALSE(form1->RunK7ApiTest());
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_EQ(boxes.boxes[0].text, L"k7api.dll cannot be loaded.");
  ExpectIdle();
}

TEST_F(Form1K7Test, A_button_that_refuses_its_caption_leaves_nothing_behind) {
  StartGeneral();
  onEvents = [this] { Button(ID_cmdK7Api).refusing = true; };
  Click(ID_cmdK7Api);
  Button(ID_cmdK7Api).refusing = false;
  Button(ID_cmdK7Api).SetCaption(L"&Test");
  EXPECT_EQ(k7Api.checks.size(), 3U);
  ExpectIdle();
}

TEST_F(Form1K7Test, Inside_a_run_the_click_starts_a_nested_test_and_the_next_one_stops_both) {
  StartGeneral();
  Box(ID_txtPingReqCount).SetText(L"50");
  int clicks = 0;
  onEvents = [&] {
    if (clicks < 2) {
      ++clicks;
      Click(ID_cmdK7Api);
    }
  };
  Click(ID_cmdPing);
  EXPECT_EQ(k7Api.checks.size(), 1U);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
  ExpectIdle();
}

TEST_F(Form1K7Test, A_click_while_its_library_blocks_is_its_stop_and_starts_no_other_test) {
  StartGeneral();
  k7Api.goodChecks = 0;
  bool closed = false;
  k7Api.onCheck = [&] {
    WhileBlocked([&] {
      Click(ID_cmdK7Api);
      closed = form.Close();
    });
  };
  Click(ID_cmdK7Api);
  DeliverQueued();
  EXPECT_EQ(k7Api.checks.size(), 1U);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_FALSE(closed);
  ExpectIdle();
}

TEST_F(Form1K7Test, Its_button_asks_nothing_of_the_field_that_loses_the_focus_while_it_shows_Stop) {
  StartGeneral();
  Box(ID_txtPingReqCount).SetText(L"");
  onEvents = [&] { EXPECT_TRUE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api))); };
  Click(ID_cmdK7Api);
  EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api)));
}

TEST_F(Form1K7Test, The_end_of_a_nested_test_leaves_the_button_of_the_outer_one_asking_nothing) {
  StartGeneral(L"-X 4 -PING_N");
  bool nested = false;
  onEvents = [&] {
    if (std::exchange(nested, true)) return;
    EXPECT_TRUE(form1->RunAllTests());
    EXPECT_EQ(k7Api.Count("K7_AllocHandle"), 2);
    Box(ID_txtPingReqCount).SetText(L"");
    EXPECT_TRUE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api)));
  };
  Click(ID_cmdK7Api);
  EXPECT_TRUE(nested);
  EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api)));
  ExpectIdle();
}

TEST_F(Form1K7Test, The_ladder_leaves_it_out_with_bit_0x20_whatever_bit_4_says) {
  StartGeneral(L"-X 36 -PING_N");
  Click(ID_cmdAllTest);
  EXPECT_TRUE(form1->TestOptionMask(kK7ApiTest));
  EXPECT_TRUE(Listed(L"CNC Type\t31iB"));
  EXPECT_TRUE(k7Api.calls.empty());
  ExpectIdle();
}

TEST_F(Form1K7Test, Left_out_with_bit_0x20_it_does_not_end_the_ladder_below_the_listing) {
  StartGeneral(L"-X 44 -PING_N");
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_TRUE(k7Api.calls.empty());
  EXPECT_TRUE(Listed(L"FTP Connect test..."));
}

TEST_F(Form1K7Test, A_click_inside_the_ladders_own_K7_rung_starts_a_nested_test) {
  StartGeneral(L"-X 4 -PING_N");
  bool clicked = false;
  onEvents = [&] {
    if (clicked || k7Api.checks.size() != 1) return;
    clicked = true;
    Click(ID_cmdK7Api);
  };
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_EQ(k7Api.Count("K7_AllocHandle"), 2);
  EXPECT_EQ(k7Api.Count("K7_FreeHandle"), 2);
  EXPECT_EQ(k7Api.checks.size(), 6U);
  const Lines k7Lines(std::find(List().lines.begin(), List().lines.end(), L"K7Api test...."),
                      List().lines.end());
  EXPECT_EQ(k7Lines, (Lines{L"K7Api test....", L"00001 Live=True", L"", L"K7Api test....", L"00001 Live=True",
                            L"00002 Live=True", L"00003 Live=True", L"00002 Live=True", L"00003 Live=True"}));
  ExpectIdle();
}

TEST_F(Form1K7Test, A_second_click_inside_the_ladders_own_K7_rung_stops_the_nested_test_and_the_ladder) {
  StartGeneral(L"-X 12 -PING_N");
  int clicks = 0;
  onEvents = [&] {
    if (clicks == 2 || k7Api.checks.empty()) return;
    ++clicks;
    Click(ID_cmdK7Api);
  };
  EXPECT_FALSE(form1->RunAllTests());
  EXPECT_EQ(k7Api.checks.size(), 2U) << "one of each test";
  EXPECT_TRUE(wininet.calls.empty());
  ExpectIdle();
}

TEST_F(Form1K7Test, A_run_that_begins_inside_the_test_leaves_the_stop_to_the_test) {
  StartGeneral();
  Box(ID_txtPingReqCount).SetText(L"50");
  bool pinging = false;
  onEvents = [&] {
    if (!pinging) {
      pinging = true;
      Click(ID_cmdPing);
    } else if (!icmp.requests.empty()) {
      form.PressEscape();
    }
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_EQ(k7Api.checks.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1K7Test, A_run_that_ends_inside_the_test_does_not_make_the_window_closable) {
  StartGeneral();
  bool pinged = false;
  bool closed = false;
  onEvents = [&] {
    if (!pinged) {
      pinged = true;
      Click(ID_cmdPing);
    }
    closed = closed || form.Close();
  };
  Click(ID_cmdK7Api);
  EXPECT_FALSE(closed);
  EXPECT_EQ(k7Api.checks.size(), 3U);
  ExpectIdle();
}

}  // namespace
}  // namespace tarvik::test
