// The commands of the result list on the real window: menus, keys and clipboard.

#include "lab/pc/window_parts.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class Commands : public WindowsTest<Commands> {
 protected:
  void ExpectClipboard(const std::string& text) {
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return Pc().ClipboardText() == text; }))
        << Pc().ClipboardText().value_or("(none)");
  }
  bool WaitForReport() {
    return WaitUntil(kSoon, [&] { return Pc().ClipboardText().value_or("").starts_with("Tarvik "); });
  }
  /// What the open context menu shows: "Copy &line\tCtrl+C", "-" for a separator, "(...)" for one that is
  /// off.
  std::vector<std::string> OpenMenu() {
    std::vector<std::string> captions;
    for (const auto& item : Program().WaitForWindow(kOpenMenuClass).Menu()) {
      const std::string caption = item.caption.empty() ? "-" : item.caption;
      captions.push_back(item.enabled || caption == "-" ? caption : "(" + caption + ")");
    }
    return captions;
  }
  /// Presses a key in the open menu.
  void PressInMenu(const WindowUnderTest& window, const std::string& key) {
    const WindowUnderTest menu = Program().WaitForWindow(kOpenMenuClass);
    window.Press(key);
    menu.WaitUntilGone();
  }
};

const std::vector<std::string> kCommands = {"&Copy line\tCtrl+C",
                                            "Copy a&ll lines",
                                            "Copy &report\tCtrl+Shift+C",
                                            "&Save report...\tCtrl+S",
                                            "&Explain\tF1",
                                            "-",
                                            "Clear lis&t"};

TEST_F(Commands, A_right_click_selects_the_line_and_opens_the_menu) {
  const WindowUnderTest window = Start("-LANGID 1 -X 0");
  Pc().SetClipboardText("before");
  window.RightClickLine(ID_lstResult, 2);
  EXPECT_EQ(OpenMenu(), kCommands);
  EXPECT_EQ(window.StateOfList(ID_lstResult).selected, 2);
  PressInMenu(window, "C");
  ExpectClipboard(window.Lines(ID_lstResult).at(2));
  window.WaitForText(ID_lblAnswer, "1 line copied");
}

TEST_F(Commands, A_right_click_below_the_last_line_keeps_the_selection) {
  const WindowUnderTest window = Start();
  window.RightClickLine(ID_lstResult, 6);
  PressInMenu(window, "Esc");
  EXPECT_EQ(window.StateOfList(ID_lstResult).selected, 5);
}

TEST_F(Commands, Shift_F10_and_the_menu_key_open_the_menu_at_the_list) {
  const WindowUnderTest window = Start();
  for (const char* const keys : {"Shift+F10", "Apps"}) {
    SCOPED_TRACE(keys);
    for (const bool empty : {false, true}) {
      if (empty) window.EmptyList(ID_lstResult);
      window.SetFocus(ID_lstResult);
      window.Press(keys);
      const WindowUnderTest menu = Program().WaitForWindow(kOpenMenuClass);
      const ScreenRect list = window.Rect(ID_lstResult);
      const ScreenRect place = menu.Rect(0);
      EXPECT_TRUE(place.left >= list.left && place.left < list.left + 20);
      EXPECT_TRUE(place.top >= list.top && place.top < list.top + list.height);
      PressInMenu(window, "Esc");
    }
    window.AddLines(ID_lstResult, 6, "line");
  }
}

TEST_F(Commands, The_Help_menu_has_them_after_what_it_had_before) {
  const WindowUnderTest window = Start("-LANGID 1 -X 0");
  std::vector<std::string> captions;
  for (const auto& item : window.Menu())
    if (item.depth == 1) captions.push_back(item.caption.empty() ? "-" : item.caption);
  std::vector<std::string> expected = {"&About Tarvik", "-"};
  expected.insert(expected.end(), kCommands.begin(), kCommands.end() - 2);
  expected.insert(expected.end(), {"-", "Clear lis&t"});
  EXPECT_EQ(captions, expected);
}

TEST_F(Commands, A_command_of_the_Help_menu_works_by_its_access_keys) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.SetFocus(ID_cmdPing);
  window.Press("Alt+H");
  PressInMenu(window, "R");
  EXPECT_TRUE(WaitForReport());
  window.Press("Alt+H");
  PressInMenu(window, "T");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) == 0; }));
}

TEST_F(Commands, In_Japanese_the_access_keys_are_the_same) {
  const WindowUnderTest window = Start("-LOCALEID 1041 -X 0");
  Pc().SetClipboardText("before");
  window.RightClickLine(ID_lstResult, 0);
  EXPECT_EQ(OpenMenu().at(2), "レポートをコピー(&R)\tCtrl+Shift+C");
  PressInMenu(window, "R");
  EXPECT_TRUE(WaitForReport());
  window.WaitForText(ID_lblAnswer, "レポートをコピーしました");
}

TEST_F(Commands, Ctrl_C_copies_the_line_in_the_list_and_the_text_in_a_field) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.SetText(ID_cmbIPAddr, "192.168.1.100");
  window.SetFocus(ID_lstResult);
  window.Press("Home");
  window.Press("Ctrl+C");
  ExpectClipboard(window.Lines(ID_lstResult).at(0));
  for (const int field : {ID_cmbIPAddr, ID_txtPingReqCount}) {
    window.SetFocus(field);
    window.Press("Ctrl+A");
    window.Press("Ctrl+C");
    ExpectClipboard(window.Text(field));
  }
}

TEST_F(Commands, Ctrl_Shift_C_copies_the_report_wherever_the_focus_is) {
  const WindowUnderTest window = Start();
  for (const int control : {ID_lstResult, ID_cmbIPAddr, ID_txtPingReqCount, ID_cmdPing, ID_tabMode}) {
    SCOPED_TRACE(control);
    Pc().SetClipboardText("before");
    window.SetFocus(control);
    window.Press("Ctrl+Shift+C");
    EXPECT_TRUE(WaitForReport());
    window.WaitForText(ID_lblAnswer, "Report copied");
  }
}

TEST_F(Commands, Copying_and_saving_by_keys_do_nothing_while_a_message_box_is_open) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.SetFocus(ID_txtPingReqCount);
  window.SetText(ID_txtPingReqCount, "-1");
  window.Press("Tab");
  const BoxUnderTest box = Program().WaitForBox();
  for (const char* const keys : {"Ctrl+Shift+C", "Ctrl+S"}) window.Press(keys);
  EXPECT_EQ(Program().WaitForBox().handle, box.handle);
  EXPECT_EQ(Pc().ClipboardText(), "before");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_FALSE(Program().HasBox());
}

}  // namespace
}  // namespace tarvik::lab
