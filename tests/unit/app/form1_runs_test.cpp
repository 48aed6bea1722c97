#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

class Form1RunsTest : public Form1Test {
 protected:
  Form1RunsTest() { Start(); }

  void ExpectIdle() {
    EXPECT_FALSE(flags.busy);
    EXPECT_FALSE(flags.stopRequested);
    EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
  }
};

TEST_F(Form1RunsTest, During_a_run_its_button_is_the_stop_button_under_an_hourglass) {
  Address().SetText(L"192.168.1.100");
  std::vector<ui::Pointer> pointers;
  onEvents = [&] {
    pointers.push_back(form.CurrentPointer());
    EXPECT_TRUE(flags.busy);
    EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Stop");
  };
  Click(ID_cmdPing);
  // Events run once more after the check has restored the pointer, before the run ends.
  ASSERT_GT(pointers.size(), 1U);
  pointers.pop_back();
  EXPECT_EQ(pointers, std::vector<ui::Pointer>(pointers.size(), ui::Pointer::Hourglass));
  ExpectIdle();
}

TEST_F(Form1RunsTest, A_second_click_stops_the_run_and_starts_no_other) {
  Address().SetText(L"192.168.1.100");
  Box(ID_txtPingReqCount).SetText(L"1000");
  onEvents = [&] { Click(ID_cmdPing); };
  Click(ID_cmdPing);
  EXPECT_EQ(icmp.requests.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1RunsTest, Every_button_that_starts_a_run_stops_an_active_one) {
  for (const int id : {ID_cmdPing, ID_cmdAllTest, ID_cmdAllFtpTest}) {
    icmp.requests.clear();
    pump.stop = false;
    Address().SetText(L"192.168.1.100");
    onEvents = [&] { Click(id); };
    Click(ID_cmdPing);
    EXPECT_EQ(icmp.requests.size(), 1U) << id;
    ExpectIdle();
  }
}

TEST_F(Form1RunsTest, Every_test_button_except_K7_Api_starts_an_outermost_run) {
  for (const int id : {ID_cmdPing, ID_cmdAllTest, ID_cmdGetInfo, ID_cmdFtpConnect, ID_cmdAllFtpTest}) {
    Address().SetText(L"192.168.1.100");
    int pauses = 0;
    onEvents = [&] {
      ++pauses;
      EXPECT_TRUE(flags.busy) << id;
      EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Stop") << id;
      EXPECT_FALSE(form.Close()) << id;
    };
    Click(id);
    EXPECT_GT(pauses, 0) << id;
    ExpectIdle();
  }
}

TEST_F(Form1RunsTest, Esc_stops_an_active_run) {
  Address().SetText(L"192.168.1.100");
  onEvents = [&] { form.PressEscape(); };
  Click(ID_cmdPing);
  EXPECT_EQ(icmp.requests.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1RunsTest, Esc_without_a_run_sets_no_stop_request) {
  form.PressEscape();
  EXPECT_FALSE(flags.stopRequested);
}

TEST_F(Form1RunsTest, The_window_cannot_close_during_a_run) {
  Address().SetText(L"192.168.1.100");
  bool closed = false;
  onEvents = [&] { closed = closed || form.Close(); };
  Click(ID_cmdAllTest);
  EXPECT_FALSE(closed);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1RunsTest, During_a_runs_message_box_the_window_cannot_close_and_no_second_run_starts) {
  Address().SetText(L"unknown-host");
  boxes.onShow = [&] {
    EXPECT_FALSE(form.Close());
    Click(ID_cmdPing);
  };
  Click(ID_cmdPing);
  EXPECT_EQ(boxes.boxes.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1RunsTest, Enter_in_the_address_box_runs_the_reachability_check) {
  Address().SetText(L"192.168.1.100");
  Address().PressKey(13, 0);
  EXPECT_EQ(icmp.requests.size(), 4U);
}

TEST_F(Form1RunsTest, Enter_with_Shift_Ctrl_or_Alt_is_ignored) {
  Address().SetText(L"192.168.1.100");
  for (const int16_t shift : {ui::kShiftHeld, ui::kCtrlHeld, ui::kAltHeld}) Address().PressKey(13, shift);
  Address().PressKey(9, 0);
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(Form1RunsTest, A_new_address_becomes_the_first_in_the_history) {
  Address().InsertItem(0, L"old");
  Address().SetText(L"192.168.1.100");
  Click(ID_cmdPing);
  EXPECT_EQ(Address().Item(0), L"192.168.1.100");
  EXPECT_EQ(Address().Item(1), L"old");
  EXPECT_EQ(Address().Text(), L"192.168.1.100");
}

TEST_F(Form1RunsTest, The_ladder_can_run_again_after_it_has_ended) {
  Address().SetText(L"192.168.1.100");
  Click(ID_cmdAllTest);
  Click(ID_cmdAllTest);
  EXPECT_EQ(icmp.requests.size(), 8U);
  ExpectIdle();
}

TEST_F(Form1RunsTest, A_count_that_is_not_a_number_is_reported_and_everything_is_restored) {
  Address().SetText(L"192.168.1.100");
  Box(ID_txtPingReqCount).SetText(L"many");
  Click(ID_cmdPing);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_NE(boxes.boxes[0].text.find(L"many"), std::wstring::npos);
  ExpectIdle();
}

TEST_F(Form1RunsTest, The_list_is_cleared_before_the_count_is_read) {
  Address().SetText(L"192.168.1.100");
  Box(ID_txtPingReqCount).SetText(L"many");
  ASSERT_FALSE(List().lines.empty());
  Click(ID_cmdPing);
  EXPECT_TRUE(List().lines.empty());
}

TEST_F(Form1RunsTest, While_its_button_shows_Stop_it_validates_no_field) {
  Address().SetText(L"192.168.1.100");
  int pauses = 0;
  onEvents = [&] {
    ++pauses;
    Box(ID_txtPingReqCount).SetText(L"");
    EXPECT_TRUE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing)));
    EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdFtpConnect)));
    boxes.boxes.clear();
  };
  Click(ID_cmdPing);
  EXPECT_GT(pauses, 0);
  EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing)));
}

TEST_F(Form1RunsTest, A_line_that_cannot_be_added_is_reported_and_everything_is_restored) {
  Address().SetText(L"192.168.1.100");
  List().refusing = true;
  Click(ID_cmdPing);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  ExpectIdle();
}

TEST_F(Form1RunsTest, The_ladder_button_of_the_family_edition_selects_only_the_library_test) {
  Click(ID_cmdAllTest);
  EXPECT_TRUE(form1->TestOptionMask(kLibraryTest));
  EXPECT_FALSE(form1->TestOptionMask(kK7ApiTest));
}

TEST_F(Form1Test, The_ladder_button_of_the_general_edition_also_selects_the_K7_API_test) {
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  Start(L"", false);
  Click(ID_cmdAllTest);
  EXPECT_TRUE(form1->TestOptionMask(kLibraryTest | kK7ApiTest));
}

}  // namespace
}  // namespace tarvik::test
