#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1WindowTest : public Form1Test {
 protected:
  Form1WindowTest() { Start(); }
};

TEST_F(Form1WindowTest, A_window_below_its_design_width_snaps_back) {
  const ui::Size design = form.WindowSize();
  form.SetWindowSize({design.width - 50, design.height + 20});
  EXPECT_EQ(form.WindowSize().width, design.width);
  EXPECT_EQ(form.WindowSize().height, design.height + 20);
}

TEST_F(Form1WindowTest, A_window_below_its_design_height_snaps_back) {
  const ui::Size design = form.WindowSize();
  form.SetWindowSize({design.width + 20, design.height - 50});
  EXPECT_EQ(form.WindowSize().height, design.height);
  EXPECT_EQ(form.WindowSize().width, design.width + 20);
}

TEST_F(Form1WindowTest, Enlarging_the_window_enlarges_only_the_result_list) {
  const ui::Size design = form.WindowSize();
  const ui::Rect list = List().Bounds();
  const ui::Rect address = Address().Bounds();
  form.SetWindowSize({design.width + 100, design.height + 40});
  EXPECT_EQ(List().Bounds().width, list.width + 100);
  EXPECT_EQ(List().Bounds().height, list.height + 40);
  EXPECT_EQ(List().Bounds().x, list.x);
  EXPECT_EQ(List().Bounds().y, list.y);
  EXPECT_EQ(Address().Bounds().width, address.width);
}

TEST_F(Form1WindowTest, A_minimised_window_keeps_its_layout) {
  const ui::Rect list = List().Bounds();
  form.minimised = true;
  form.SetWindowSize({10, 10});
  EXPECT_EQ(List().Bounds().width, list.width);
  EXPECT_EQ(form.WindowSize().width, 10);
}

TEST_F(Form1WindowTest, Shut_down_closes_the_ICMP_handle_and_the_sockets_and_saves_the_history) {
  Address().InsertItem(0, L"cnc");
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(icmp.closed, std::vector<IcmpLibrary::Handle>{icmp.createResult});
  EXPECT_EQ(winsock.cleanups, 1);
  EXPECT_EQ(settings.values[L"History\\01"], L"cnc");
}

TEST_F(Form1Test, After_a_failed_start_shut_down_cleans_up_the_sockets_but_closes_no_ICMP_handle) {
  winsock.startupResult = -1;
  Start();
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(winsock.cleanups, 1);
  EXPECT_TRUE(icmp.closed.empty());
}

TEST_F(Form1WindowTest, A_double_click_copies_all_lines_and_opens_the_clipboard_once) {
  form1->Results().ClearList();
  form1->Results().AddBatch({L"a", L"b"});
  List().DoubleClick();
  EXPECT_EQ(clipboard.sessions, 1);
  EXPECT_EQ(clipboard.text, L"a\r\nb\r\n");
  EXPECT_EQ(List().Count(), 2);
}

TEST_F(Form1WindowTest, Copying_an_empty_list_stores_an_empty_text) {
  form1->Results().ClearList();
  List().DoubleClick();
  EXPECT_EQ(clipboard.sessions, 1);
  EXPECT_EQ(clipboard.text, L"");
}

TEST_F(Form1WindowTest, A_clipboard_held_by_another_program_is_reported) {
  clipboard.taken = true;
  List().DoubleClick();
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(clipboard.text, L"from before");
}

TEST_F(Form1Test, In_paste_mode_a_double_click_pastes) {
  Start(L"-X 16 -PING_N");
  clipboard.text = L"x\r\ny";
  List().DoubleClick();
  EXPECT_EQ(List().lines, (std::vector<std::wstring>{L"x", L"y"}));
}

TEST_F(Form1WindowTest, An_invalid_ping_count_shows_a_message_and_keeps_the_focus) {
  for (const wchar_t* const text : {L"-1", L"2147483648", L"four", L"", L"1.5"}) {
    boxes.boxes.clear();
    Box(ID_txtPingReqCount).SetText(text);
    Box(ID_txtPingReqCount).SetFocus();
    EXPECT_FALSE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing))) << text;
    ASSERT_EQ(boxes.Texts(), std::vector<std::wstring>{L"0 to 2147483647 is required"}) << text;
    EXPECT_EQ(form.Focus(), &Box(ID_txtPingReqCount));
    EXPECT_EQ(Box(ID_txtPingReqCount).Text(), text);
  }
}

TEST_F(Form1WindowTest, A_ping_count_of_0_or_2147483647_is_accepted) {
  for (const wchar_t* const text : {L"0", L"2147483647"}) {
    Box(ID_txtPingReqCount).SetText(text);
    EXPECT_TRUE(form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing))) << text;
  }
}

TEST_F(Form1WindowTest, Numbers_and_passwords_are_typed_without_an_input_method) {
  for (const int id : {ID_txtTcpPortNo, ID_txtPingReqCount, ID_txtNxlibTimeOut, ID_txtK7ApiTestCount})
    EXPECT_EQ(Box(id).style, ui::TextBoxStyle::Number) << id;
  for (const int id : {ID_txtAccessCode, ID_txtFtpPasswd})
    EXPECT_EQ(Box(id).style, ui::TextBoxStyle::Password) << id;
  EXPECT_EQ(Box(ID_txtFtpUsername).style, ui::TextBoxStyle::Plain);
}

TEST_F(Form1WindowTest, On_a_small_screen_the_list_shrinks_and_the_minimum_size_fits) {
  // 1366 x 768 at 150 percent, with the taller line of a Japanese font.
  form.workArea = {1366, 728};
  form.lineHeight = 36;
  form.onScalingChanged();
  EXPECT_LE(form.minimumWindowSize.height, 728);
  EXPECT_LE(form.WindowSize().height, 728);
  EXPECT_GE(List().Bounds().height, 36);
  EXPECT_LE(List().Bounds().y + List().Bounds().height, form.ClientSize().height);
  form.workArea = {1920, 1040};
  form.onScalingChanged();
  EXPECT_EQ(List().Bounds().height, 16 * 36);
}

TEST_F(Form1WindowTest, An_unknown_work_area_does_not_limit_the_window) {
  form.workArea = {};
  form.onScalingChanged();
  EXPECT_EQ(List().Bounds().height, 16 * form.lineHeight);
  EXPECT_GT(form.minimumWindowSize.height, 16 * form.lineHeight);
}

TEST_F(Form1WindowTest, Another_scaling_changes_how_far_the_list_scrolls_sideways) {
  List().clientWidth = 700;
  form.onScalingChanged();
  EXPECT_EQ(List().horizontalExtent, 2100);
}

TEST_F(Form1Test, Windows_shows_why_the_session_must_not_end_in_English) {
  Start(L"-LANGID 1");
  EXPECT_EQ(form.shutdownBlockReason, L"A test is running.");
}

TEST_F(Form1Test, Windows_shows_why_the_session_must_not_end_in_Japanese) {
  Start(L"-LANGID 0");
  EXPECT_EQ(form.shutdownBlockReason, L"ﾃｽﾄを実行中です。");
}

TEST_F(Form1WindowTest, Number_boxes_select_their_text_on_focus) {
  for (const int id : {ID_txtTcpPortNo, ID_txtPingReqCount, ID_txtNxlibTimeOut, ID_txtK7ApiTestCount}) {
    Box(id).SetText(L"12345");
    Box(id).ReceiveFocus();
    EXPECT_EQ(Box(id).selectionStart, 0);
    EXPECT_EQ(Box(id).selectionLength, 5);
  }
}

TEST_F(Form1WindowTest, The_access_code_box_accepts_at_most_eight_digits) {
  Box(ID_txtAccessCode).SetText(L"1234567");
  EXPECT_TRUE(ui::MemoryForm::PressKey(Box(ID_txtAccessCode), L'8'));
  Box(ID_txtAccessCode).SetText(L"12345678");
  EXPECT_FALSE(ui::MemoryForm::PressKey(Box(ID_txtAccessCode), L'9'));
  EXPECT_TRUE(ui::MemoryForm::PressKey(Box(ID_txtAccessCode), 8));
}

TEST_F(Form1WindowTest, The_check_box_enables_the_access_code_box) {
  EXPECT_FALSE(Box(ID_txtAccessCode).Enabled());
  form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).SetChecked(true);
  EXPECT_TRUE(Box(ID_txtAccessCode).Enabled());
  form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).SetChecked(false);
  EXPECT_FALSE(Box(ID_txtAccessCode).Enabled());
}

TEST_F(Form1WindowTest, Every_field_follows_its_label_in_tab_order) {
  const std::vector<int>& order = form.Order();
  const std::vector<std::pair<int, int>> labelled = {{ID_lblIPAddr, ID_cmbIPAddr},
                                                     {ID_lblPingReqCount, ID_txtPingReqCount},
                                                     {ID_lblNxlibTimeOut, ID_txtNxlibTimeOut},
                                                     {ID_lblTcpPortNo, ID_txtTcpPortNo},
                                                     {ID_lblAccessCode, ID_txtAccessCode},
                                                     {ID_lblTestCount, ID_txtK7ApiTestCount},
                                                     {ID_lblFtpUsername, ID_txtFtpUsername},
                                                     {ID_lblFtpPasswd, ID_txtFtpPasswd},
                                                     {ID_lblResult, ID_lstResult}};
  for (const auto& [label, field] : labelled) {
    const auto at = std::find(order.begin(), order.end(), field);
    ASSERT_NE(at, order.begin());
    EXPECT_EQ(*std::prev(at), label) << field;
  }
}

TEST_F(Form1WindowTest, No_control_overlaps_another_on_its_page) {
  const std::vector<int>& order = form.Order();
  for (const int a : order) {
    for (const int b : order) {
      if (a >= b || form.PageOf(a) != form.PageOf(b) || a < ID_lblIPAddr || b < ID_lblIPAddr) continue;
      const auto bounds = [this](int id) {
        return dynamic_cast<ui::Control&>(form.Get<ui::Element>(id)).Bounds();
      };
      const ui::Rect one = bounds(a);
      const ui::Rect other = bounds(b);
      const bool apart = one.x + one.width <= other.x || other.x + other.width <= one.x ||
                         one.y + one.height <= other.y || other.y + other.height <= one.y;
      EXPECT_TRUE(apart) << a << " and " << b;
    }
  }
}

}  // namespace
}  // namespace tarvik::test
