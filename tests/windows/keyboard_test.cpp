#include "app/control_ids.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class Keyboard : public WindowsTest<Keyboard> {};

TEST_F(Keyboard, The_address_box_takes_only_what_an_address_can_hold) {
  const WindowUnderTest window = Start();
  window.Type(ID_cmbIPAddr, "a_b c:1.2-Z");
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "abc1.2-Z");
}

TEST_F(Keyboard, The_access_code_box_takes_eight_digits) {
  const WindowUnderTest window = Start();
  window.SelectTab(ID_tabMode, 1);
  window.Click(ID_chkAccessCode);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_txtAccessCode); }));
  window.Type(ID_txtAccessCode, "1a2345678901");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "12345678");
}

TEST_F(Keyboard, Alt_with_a_digit_brings_the_page_to_front) {
  const WindowUnderTest window = Start();
  window.Press("Alt+5");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdFtpConnect); }));
  window.Press("Alt+1");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdPing); }));
}

TEST_F(Keyboard, The_Tab_key_follows_the_eye) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_cmbIPAddr);
  for (const int id :
       {ID_tabMode, ID_txtPingReqCount, ID_cmdPing, ID_cmdAllTest, ID_lstResult, ID_cmbIPAddr}) {
    window.Press("Tab");
    window.WaitForFocus(id);
  }
}

TEST_F(Keyboard, A_ping_count_out_of_range_keeps_the_focus_and_starts_nothing) {
  const WindowUnderTest window = Start();
  window.SetText(ID_txtPingReqCount, "-1");
  window.SetFocus(ID_txtPingReqCount);
  window.Click(ID_cmdPing);
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_EQ(box.text, "0 to 2147483647 is required");
  Program().Answer(box, BoxButton::Ok);
  window.WaitForFocus(ID_txtPingReqCount);
  EXPECT_EQ(window.Text(ID_txtPingReqCount), "-1");
  EXPECT_EQ(window.LineCount(ID_lstResult), 6);
}

TEST_F(Keyboard, Number_boxes_select_their_text_when_they_get_the_focus) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_cmdPing);
  window.SetFocus(ID_txtPingReqCount);
  window.Type(ID_txtPingReqCount, "9");
  EXPECT_EQ(window.Text(ID_txtPingReqCount), "9");
}

}  // namespace
}  // namespace tarvik::lab
