#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

/// The general edition, because only it has the K7 pages.
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

TEST_F(Form1K7Test, During_the_test_its_button_is_the_stop_button_under_an_hourglass) {
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

TEST_F(Form1K7Test, A_count_that_is_not_a_number_is_reported_with_field_range_and_text) {
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

TEST_F(Form1K7Test, Without_a_host_on_the_command_line_it_connects_to_this_PC) {
  StartGeneral();
  form1->RunK7ApiTest();
  EXPECT_EQ(k7Api.connectedTo, "127.0.0.1");
}

TEST_F(Form1K7Test, It_connects_to_the_host_of_the_command_line) {
  StartGeneral(L"-K7SERVER_HOST 10.9.8.7 -PING_N");
  form1->RunK7ApiTest();
  EXPECT_EQ(k7Api.connectedTo, "10.9.8.7");
}

TEST_F(Form1K7Test, A_second_click_stops_it_after_the_current_cycle) {
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

TEST_F(Form1K7Test, It_can_run_again_after_a_stop) {
  StartGeneral();
  onEvents = [this] { form.PressEscape(); };
  Click(ID_cmdK7Api);
  onEvents = nullptr;
  Click(ID_cmdK7Api);
  EXPECT_EQ(k7Api.checks.size(), 4U);
  ExpectIdle();
}

TEST_F(Form1K7Test, It_passes_unless_a_check_fails) {
  StartGeneral();
  EXPECT_TRUE(form1->RunK7ApiTest());
  k7Api.goodChecks = 0;
  EXPECT_FALSE(form1->RunK7ApiTest());
  ExpectIdle();
}

TEST_F(Form1K7Test, It_passes_silently_when_its_library_was_missing_at_start_up) {
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

TEST_F(Form1K7Test, Without_an_address_it_shows_an_empty_box_and_never_offers_Stop) {
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

TEST_F(Form1K7Test, A_failure_box_is_shown_while_the_test_is_still_active) {
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

TEST_F(Form1K7Test, An_unusable_library_is_reported_in_the_standard_error_dialog) {
  StartGeneral();
  k7Api.missing = true;
  EXPECT_FALSE(form1->RunK7ApiTest());
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_EQ(boxes.boxes[0].text, L"k7api.dll cannot be loaded.");
  ExpectIdle();
}

TEST_F(Form1K7Test, A_caption_that_cannot_be_restored_does_not_keep_the_test_active) {
  StartGeneral();
  onEvents = [this] { Button(ID_cmdK7Api).refusing = true; };
  Click(ID_cmdK7Api);
  Button(ID_cmdK7Api).refusing = false;
  Button(ID_cmdK7Api).SetCaption(L"&Test");
  EXPECT_EQ(k7Api.checks.size(), 3U);
  ExpectIdle();
}

TEST_F(Form1K7Test, During_a_run_a_click_starts_a_nested_test_and_the_next_click_stops_both) {
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

TEST_F(Form1K7Test, A_click_while_its_library_blocks_stops_it_and_starts_no_other_test) {
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

TEST_F(Form1K7Test, While_its_button_shows_Stop_it_validates_no_field) {
  StartGeneral();
  Box(ID_txtPingReqCount).SetText(L"");
  onEvents = [&] { EXPECT_TRUE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api))); };
  Click(ID_cmdK7Api);
  EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdK7Api)));
}

TEST_F(Form1K7Test, After_a_nested_test_the_stop_button_still_validates_no_field) {
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

TEST_F(Form1K7Test, With_bit_0x20_the_ladder_skips_it_even_if_bit_4_is_set) {
  StartGeneral(L"-X 36 -PING_N");
  Click(ID_cmdAllTest);
  EXPECT_TRUE(form1->TestOptionMask(kK7ApiTest));
  EXPECT_TRUE(Listed(L"CNC Type\t31iB"));
  EXPECT_TRUE(k7Api.calls.empty());
  ExpectIdle();
}

TEST_F(Form1K7Test, Skipping_it_with_bit_0x20_does_not_end_the_ladder) {
  StartGeneral(L"-X 44 -PING_N");
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_TRUE(k7Api.calls.empty());
  EXPECT_TRUE(Listed(L"FTP Connect test..."));
}

TEST_F(Form1K7Test, A_click_during_the_ladders_K7_rung_starts_a_nested_test) {
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

TEST_F(Form1K7Test, After_a_nested_test_of_another_address_the_report_is_about_the_outer_test_again) {
  StartGeneral(L"-X 4 -PING_N");
  const auto reportNames = [this](const wchar_t* words) {
    EXPECT_TRUE(form.PressShortcut(L'C', ui::kCtrlHeld + ui::kShiftHeld));
    return clipboard.text->find(words) != std::wstring::npos;
  };
  bool nestedNamed = false;
  k7Api.onCheck = [&] {
    if (k7Api.checks.back().address == "192.168.1.101")
      nestedNamed = reportNames(L"Tested was 192.168.1.101.");
  };
  bool clicked = false;
  onEvents = [&] {
    if (clicked || k7Api.checks.size() != 1) return;
    clicked = true;
    Address().Type(L"192.168.1.101");
    Click(ID_cmdK7Api);
  };
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_TRUE(nestedNamed);
  EXPECT_FALSE(reportNames(L"Tested was")) << "the last answers are about the address of the run";
  ExpectIdle();
}

TEST_F(Form1K7Test, A_second_click_during_the_ladders_K7_rung_stops_the_nested_test_and_the_ladder) {
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

TEST_F(Form1K7Test, Stopping_a_run_inside_the_test_also_stops_the_test) {
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

TEST_F(Form1K7Test, After_a_run_inside_the_test_the_window_still_cannot_close) {
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
