// The window, its boxes and its connection.

#include <numeric>

#include "platform/runtime_error.h"
#include "tests/unit/cnclib/pmc_fixture.h"

namespace tarvik::test {
namespace {

constexpr int kLabels[] = {ID_Label1_0, ID_Label1_1, ID_Label1_2, ID_Label1_3,
                           ID_Label1_4, ID_Label1_5, ID_Label1_6};
constexpr int kButtons[] = {ID_cmdRead, ID_cmdStop, ID_cmdClose};

TEST_F(PmcTest, The_window_opens_with_its_defaults) {
  EXPECT_TRUE(form->Visible());
  EXPECT_EQ(form->Caption(), L"PMC Read Test");
  EXPECT_EQ(Address().Text(), L"D");
  EXPECT_EQ(Box(ID_txtPmcStart).Text(), L"0");
  EXPECT_EQ(Box(ID_txtPmcLen).Text(), L"1");
  EXPECT_EQ(Box(ID_txtCount).Text(), L"10");
  EXPECT_EQ(Box(ID_txtSleep).Text(), L"1000");
  EXPECT_EQ(Caption(ID_lblCount), L"");
  ExpectIdle();
}

TEST_F(PmcTest, The_address_letters_are_listed_at_their_codes) {
  const std::wstring letters = L"GFYXARTKCDMNE";
  ASSERT_EQ(Address().Count(), static_cast<int>(letters.size()));
  for (int i = 0; i < Address().Count(); ++i)
    EXPECT_EQ(Address().Item(i), std::wstring(1, letters[static_cast<size_t>(i)]));
  EXPECT_EQ(Address().SelectedIndex(), 9);
}

TEST_F(PmcTest, The_captions_follow_the_language_mode) {
  const auto captions = [&] {
    Lines lines;
    for (const int id : kLabels) lines.push_back(Caption(id));
    for (const int id : kButtons) lines.push_back(Button(id).Caption());
    return lines;
  };
  EXPECT_EQ(captions(), (Lines{L"PMC Addr.", L"StartNo", L"Length", L"Test", L"Read Int.", L"Result Data",
                               L"Result (OK/ERR)", L"Read(&R)", L"Stop(&S)", L"Close(&X)"}));
  mode = kBuiltInJapanese;
  Open();
  EXPECT_EQ(captions(), (Lines{L"PMCｱﾄﾞﾚｽ", L"開始番号", L"ﾃﾞｰﾀ長", L"ﾃｽﾄ回数", L"読取周期", L"読取 PMCﾃﾞｰﾀ",
                               L"読取結果 (OK/ERR)", L"読取(&R)", L"停止(&S)", L"終了(&X)"}));
  mode = kLanguageFile;
  Open();
  EXPECT_EQ(captions(), (Lines{L"text 137", L"text 138", L"text 139", L"text 140", L"text 141", L"text 142",
                               L"text 143", L"text 144", L"text 145", L"text 146"}));
  EXPECT_EQ(form->Caption(), L"PMC Read Test");
}

TEST_F(PmcTest, One_byte_of_D_at_0_is_shown_as_one_line) {
  Read();
  EXPECT_EQ(library.calls, (Calls{"nx_allochandle3(192.168.1.100, 8193, 10)",
                                  "nx_pmc_rdrange(5, 9, 0, 0, 0, 9)", "nx_freehandle(5)"}));
  EXPECT_EQ(library.header, (std::vector<int16_t>{9, 0, 0, 0}));
  EXPECT_EQ(Data().lines, Lines{L"0000\tFF"});
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", system.now}));
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectIdle();
}

TEST_F(PmcTest, The_range_is_read_as_typed_and_shown_from_0) {
  Address().Select(4);
  Box(ID_txtPmcStart).SetText(L"100");
  Box(ID_txtPmcLen).SetText(L"3");
  library.data = {0x00, 0x0A, 0xB1};
  Read();
  EXPECT_EQ(library.calls[1], "nx_pmc_rdrange(5, 4, 0, 100, 102, 11)");
  EXPECT_EQ(library.header, (std::vector<int16_t>{4, 0, 100, 102}));
  EXPECT_EQ(Data().lines, (Lines{L"0000\t0", L"0001\tA", L"0002\tB1"}));
  EXPECT_EQ(Data().SelectedIndex(), 0);
}

TEST_F(PmcTest, The_first_and_the_last_address_letter_have_the_codes_0_and_12) {
  Address().Select(0);
  Read();
  Address().Select(12);
  Read();
  EXPECT_EQ(library.calls[1], "nx_pmc_rdrange(5, 0, 0, 0, 0, 9)");
  EXPECT_EQ(library.calls[4], "nx_pmc_rdrange(6, 12, 0, 0, 0, 9)");
}

TEST_F(PmcTest, Length_8000_is_read_and_listed_as_one_batch) {
  Box(ID_txtPmcLen).SetText(L"8000");
  library.data.resize(8000);
  std::iota(library.data.begin(), library.data.end(), uint8_t{0});
  Read();
  EXPECT_EQ(library.calls[1], "nx_pmc_rdrange(5, 9, 0, 0, 7999, 8008)");
  EXPECT_EQ(Data().Count(), 8000);
  EXPECT_EQ(Data().lines.back(), L"7999\t3F");
  EXPECT_EQ(Data().painted, 0);
  EXPECT_TRUE(Data().redrawing);
}

TEST_F(PmcTest, A_length_above_8000_is_reported_and_the_connection_is_closed) {
  Box(ID_txtPmcLen).SetText(L"8001");
  Log().lines = {L"from before"};
  Click(ID_cmdRead);
  ExpectRejected({L"PMC read length error, maximum=8000"});
  EXPECT_EQ(Log().lines, Lines{L"from before"});
}

TEST_F(PmcTest, The_message_about_the_length_follows_the_language_mode) {
  Box(ID_txtPmcLen).SetText(L"40000");
  Click(ID_cmdRead);
  mode = kBuiltInJapanese;
  Click(ID_cmdRead);
  mode = kLanguageFile;
  Click(ID_cmdRead);
  EXPECT_EQ(boxes.Texts(),
            (Lines{L"PMC read length error, maximum=8000", L"PMC読取長さエラー 最大=8000", L"text 136"}));
}

TEST_F(PmcTest, An_invalid_length_is_reported_with_the_box_its_range_and_the_typed_text) {
  for (const wchar_t* typed : {L"0", L"-20", L"", L"ten", L"99999999999"}) {
    boxes.boxes.clear();
    library.calls.clear();
    Box(ID_txtPmcLen).SetText(typed);
    Click(ID_cmdRead);
    ExpectRejected({L"Length: 1 ... 8000", std::wstring(L"You typed: \"") + typed + L"\""});
  }
}

TEST_F(PmcTest, A_start_number_that_is_negative_or_not_a_number_is_rejected) {
  for (const wchar_t* typed : {L"", L"x", L"-1", L"32768", L"1.0"}) {
    boxes.boxes.clear();
    library.calls.clear();
    Box(ID_txtPmcStart).SetText(typed);
    Click(ID_cmdRead);
    ExpectRejected({L"StartNo: 0 ... 32767", std::wstring(L"\"") + typed + L"\""});
  }
}

TEST_F(PmcTest, A_range_beyond_16_bits_is_rejected_and_one_up_to_the_limit_is_read) {
  Box(ID_txtPmcLen).SetText(L"2");
  Box(ID_txtPmcStart).SetText(L"32767");
  Click(ID_cmdRead);
  ExpectRejected({L"StartNo: 0 ... 32766", L"\"32767\""});
  Box(ID_txtPmcStart).SetText(L"32766");
  Read();
  EXPECT_EQ(library.calls[3], "nx_pmc_rdrange(6, 9, 0, 32766, 32767, 10)");
}

TEST_F(PmcTest, A_count_or_an_interval_out_of_range_is_rejected) {
  Box(ID_txtCount).SetText(L"2147483648");
  Click(ID_cmdRead);
  ExpectRejected({L"Test: -2147483648 ... 2147483647", L"\"2147483648\""});
  Box(ID_txtCount).SetText(L"1");
  for (const wchar_t* typed : {L"-1", L"soon", L"2147483648"}) {
    boxes.boxes.clear();
    library.calls.clear();
    Box(ID_txtSleep).SetText(typed);
    Click(ID_cmdRead);
    ExpectRejected({L"Read Int.: 0 ... 2147483647", std::wstring(L"\"") + typed + L"\""});
  }
}

TEST_F(PmcTest, The_message_about_a_box_follows_the_language_mode) {
  mode = kLanguageFile;
  Open();
  Box(ID_txtPmcStart).SetText(L"x");
  Click(ID_cmdRead);
  EXPECT_EQ(
      boxes.Texts(),
      Lines{L"\"text 138\" is not a whole number.\r\ntext 133\r\ntext 138: 0text 13532767\r\ntext 134\"x\""});
}

TEST_F(PmcTest, A_long_typed_text_is_truncated_in_the_message) {
  Box(ID_txtPmcStart).SetText(std::wstring(100000, L'9'));
  Click(ID_cmdRead);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_LT(boxes.boxes[0].text.size(), 250U);
}

TEST_F(PmcTest, A_port_that_is_not_a_number_is_an_error_before_the_connection) {
  target.port.text = L"no";
  Click(ID_cmdRead);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_TRUE(library.calls.empty());
  ExpectIdle();
}

TEST_F(PmcTest, A_failed_connection_is_reported_and_nothing_is_read) {
  for (const int16_t code : {int16_t{-16}, int16_t{7}}) {
    boxes.boxes.clear();
    library.calls.clear();
    library.openResult = code;
    Click(ID_cmdRead);
    EXPECT_EQ(boxes.Texts(), Lines{L"Allocate Handle error=" + std::to_wstring(code)});
    EXPECT_EQ(boxes.boxes[0].title, L"");
    EXPECT_EQ(library.Names(), Calls{"nx_allochandle3"});
    ExpectIdle();
  }
}

TEST_F(PmcTest, A_handle_returned_with_a_failure_is_freed) {
  library.openResult = -8;
  library.givesHandleOnFailure = true;
  Click(ID_cmdRead);
  EXPECT_EQ(library.frees, 1);
}

TEST_F(PmcTest, Handle_0_with_a_good_result_is_used_and_not_freed) {
  library.nextHandle = 0;
  Read();
  EXPECT_EQ(library.Names(), (Calls{"nx_allochandle3", "nx_pmc_rdrange"}));
}

TEST_F(PmcTest, Nothing_can_be_clicked_during_the_connection_and_only_Stop_during_the_run) {
  const auto enabled = [&] {
    return std::vector<bool>{Button(ID_cmdRead).Enabled(), Button(ID_cmdStop).Enabled(),
                             Button(ID_cmdClose).Enabled()};
  };
  library.onRead = [&] {
    EXPECT_EQ(enabled(), (std::vector<bool>{false, true, false}));
    EXPECT_TRUE(Button(ID_cmdStop).HasFocus());
  };
  Read();
  EXPECT_TRUE(Button(ID_cmdRead).HasFocus());
  library.openResult = -8;
  boxes.onShow = [&] { EXPECT_EQ(enabled(), (std::vector<bool>{false, false, false})); };
  Read();
  EXPECT_EQ(boxes.boxes.size(), 1U);
}

TEST_F(PmcTest, A_click_on_Read_while_the_connection_closes_starts_no_run) {
  // nx_freehandle may block until the controller answers; the click is handled after it.
  bool waiting = false;
  library.onCall = [&] { waiting = waiting || library.calls.back().starts_with("nx_freehandle"); };
  pump.onEvents = [&] {
    if (!waiting) return;
    waiting = false;
    EXPECT_FALSE(Button(ID_cmdRead).Enabled());
    EXPECT_FALSE(Button(ID_cmdClose).Enabled());
    Click(ID_cmdRead);
  };
  const auto expectOneRun = [&](const char* ending) {
    EXPECT_FALSE(waiting) << ending;
    EXPECT_EQ(library.Count("nx_allochandle3"), 1) << ending;
    ExpectIdle();
    waiting = false;
    library.calls.clear();
  };
  Read();
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", system.now}));
  expectOneRun("all passes made");
  library.onRead = [&] { Click(ID_cmdStop); };
  Read(L"5");
  expectOneRun("stopped");
  library.missing = {"nx_pmc_rdrange"};
  Read();
  expectOneRun("a call that fails");
  Box(ID_txtPmcLen).SetText(L"x");
  Read();
  expectOneRun("a rejected box");
}

TEST_F(PmcTest, A_focus_moved_by_the_user_is_not_moved_back) {
  library.onRead = [&] { Box(ID_txtPmcStart).SetFocus(); };
  Read();
  EXPECT_TRUE(Box(ID_txtPmcStart).HasFocus());
}

TEST_F(PmcTest, The_focus_is_in_the_rejected_box) {
  for (const int id : {ID_txtPmcLen, ID_txtPmcStart, ID_txtCount, ID_txtSleep}) {
    const std::wstring before = Box(id).Text();
    Button(ID_cmdRead).SetFocus();
    Box(id).SetText(L"x");
    Click(ID_cmdRead);
    EXPECT_TRUE(Box(id).HasFocus()) << id;
    Box(id).SetText(before);
  }
  Box(ID_txtPmcLen).SetText(L"8001");
  Button(ID_cmdRead).SetFocus();
  Click(ID_cmdRead);
  EXPECT_TRUE(Box(ID_txtPmcLen).HasFocus());
}

TEST_F(PmcTest, The_lists_grow_with_the_window_and_no_controls_overlap) {
  const ui::Size minimum = form->WindowSize();
  EXPECT_EQ(form->minimumWindowSize.width, minimum.width);
  const ui::Rect log = Log().Bounds();
  const ui::Rect read = Button(ID_cmdRead).Bounds();
  form->SetWindowSize({minimum.width + 100, minimum.height + 50});
  EXPECT_EQ(Log().Bounds().width, log.width + 100);
  EXPECT_EQ(Log().Bounds().height, log.height + 50);
  EXPECT_EQ(Button(ID_cmdRead).Bounds().y, read.y + 50);
  EXPECT_GE(Button(ID_cmdRead).Bounds().y, Log().Bounds().y + Log().Bounds().height);
  EXPECT_GE(Log().Bounds().x, Data().Bounds().x + Data().Bounds().width);
  form->minimised = true;
  form->SetWindowSize({10, 10});
  EXPECT_EQ(Log().Bounds().width, log.width + 100);
}

TEST_F(PmcTest, A_new_scaling_keeps_a_larger_window_and_enlarges_one_that_is_too_small) {
  const ui::Size minimum = form->WindowSize();
  form->SetWindowSize({minimum.width + 100, 20});
  form->onScalingChanged();
  EXPECT_EQ(form->WindowSize().width, minimum.width + 100);
  EXPECT_EQ(form->WindowSize().height, minimum.height);
}

TEST_F(PmcTest, The_Tab_order_is_the_visual_order_with_each_label_before_its_field) {
  EXPECT_EQ(
      form->Order(),
      (std::vector<int>{ID_Label1_0, ID_cmbPmcAddr, ID_Label1_1, ID_txtPmcStart, ID_Label1_2, ID_txtPmcLen,
                        ID_Label1_3, ID_txtCount, ID_Label1_4, ID_txtSleep, ID_Label1_5, ID_lstData,
                        ID_Label1_6, ID_pmc_lstResult, ID_lblCount, ID_cmdRead, ID_cmdStop, ID_cmdClose}));
}

TEST_F(PmcTest, On_a_small_screen_its_lists_shrink_and_the_minimum_size_fits) {
  form->workArea = {800, 300};
  form->onScalingChanged();
  EXPECT_LE(form->minimumWindowSize.height, 300);
  EXPECT_GT(Log().Bounds().height, 15);
}

}  // namespace
}  // namespace tarvik::test
