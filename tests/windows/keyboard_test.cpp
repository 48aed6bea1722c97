#include <filesystem>
#include <map>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class Keyboard : public WindowsTest<Keyboard> {};

TEST_F(Keyboard, The_address_field_accepts_only_characters_of_addresses) {
  const WindowUnderTest window = Start();
  window.Type(ID_cmbIPAddr, "a_b c:1.2-Z");
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "abc1.2-Z");
}

TEST_F(Keyboard, The_access_code_field_accepts_eight_digits) {
  const WindowUnderTest window = Start();
  window.SelectTab(ID_tabMode, 1);
  window.Click(ID_chkAccessCode);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_txtAccessCode); }));
  window.Type(ID_txtAccessCode, "1a2345678901");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "12345678");
}

TEST_F(Keyboard, Alt_and_a_digit_select_a_page) {
  const WindowUnderTest window = Start();
  window.Press("Alt+5");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdFtpConnect); }));
  window.Press("Alt+1");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdPing); }));
}

TEST_F(Keyboard, After_63_characters_the_address_field_accepts_only_backspace) {
  const WindowUnderTest window = Start();
  window.Type(ID_cmbIPAddr, std::string(70, 'a'));
  EXPECT_EQ(window.Text(ID_cmbIPAddr), std::string(63, 'a'));
  window.Type(ID_cmbIPAddr, "\b");
  EXPECT_EQ(window.Text(ID_cmbIPAddr), std::string(62, 'a'));
}

TEST_F(Keyboard, Pasted_text_is_not_filtered) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("a_b c");
  window.SetFocus(ID_cmbIPAddr);
  window.Press("Ctrl+V");
  window.WaitForText(ID_cmbIPAddr, "a_b c");
}

TEST_F(Keyboard, Spaces_around_a_pasted_address_are_dropped) {
  const WindowUnderTest window = Start();
  for (const char* const text :
       {"  192.168.1.100 ", "\t192.168.1.100\r\n", "\u3000192.168.1.100\u00A0\r\nsecond"}) {
    SCOPED_TRACE(text);
    window.SetText(ID_cmbIPAddr, "");
    Pc().SetClipboardText(text);
    window.SetFocus(ID_cmbIPAddr);
    window.Press("Ctrl+V");
    window.WaitForText(ID_cmbIPAddr, "192.168.1.100");
  }
}

TEST_F(Keyboard, A_pasted_address_replaces_the_selection_only) {
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "old");
  Pc().SetClipboardText(" cnc ");
  window.SetFocus(ID_cmbIPAddr);
  window.Press("End");
  window.Press("Ctrl+V");
  window.WaitForText(ID_cmbIPAddr, "oldcnc");
  window.Press("Ctrl+A");
  window.Press("Ctrl+V");
  window.WaitForText(ID_cmbIPAddr, "cnc");
}

TEST_F(Keyboard, A_full_field_rejects_typing_over_its_selection_but_accepts_backspace) {
  const WindowUnderTest window = Start();
  window.SelectTab(ID_tabMode, 1);
  window.Click(ID_chkAccessCode);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_txtAccessCode); }));
  window.Type(ID_txtAccessCode, "12345678");
  window.Press("Ctrl+A");
  window.Type(ID_txtAccessCode, "9");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "12345678");
  window.Press("Back");
  window.WaitForText(ID_txtAccessCode, "");
}

TEST_F(Keyboard, Ctrl_Backspace_deletes_the_word_before_the_caret) {
  // The character that Windows makes of the two keys; Wine makes another one.
  constexpr char kCtrlBackspace[] = "\x7F";
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "192.168.1.100");
  window.SetFocus(ID_cmbIPAddr);
  window.Press("End");
  window.Type(ID_cmbIPAddr, kCtrlBackspace);
  window.WaitForText(ID_cmbIPAddr, "192.168.1.");
  window.Type(ID_cmbIPAddr, kCtrlBackspace);
  window.WaitForText(ID_cmbIPAddr, "192.168.");
  window.SetText(ID_txtPingReqCount, "4");
  window.SetFocus(ID_txtPingReqCount);
  window.Press("End");
  window.Type(ID_txtPingReqCount, kCtrlBackspace);
  window.WaitForText(ID_txtPingReqCount, "");
}

/// Expects Tab and Shift+Tab to go through the address, the tabs, the page's controls and the list.
void ExpectTabOrder(const WindowUnderTest& window, const std::vector<std::vector<int>>& pages) {
  ASSERT_EQ(window.StateOfTabs(ID_tabMode).captions.size(), pages.size());
  for (size_t page = 0; page < pages.size(); ++page) {
    window.SelectTab(ID_tabMode, static_cast<int>(page));
    std::vector<int> stops = {ID_cmbIPAddr, ID_tabMode};
    stops.insert(stops.end(), pages[page].begin(), pages[page].end());
    stops.insert(stops.end(), {ID_lstResult, ID_cmbIPAddr});
    window.SetFocus(stops.front());
    for (size_t i = 1; i < stops.size(); ++i) {
      window.Press("Tab");
      window.WaitForFocus(stops[i]);
    }
    for (size_t i = stops.size() - 1; i-- > 0;) {
      window.Press("Shift+Tab");
      window.WaitForFocus(stops[i]);
    }
  }
}

const std::vector<int> kPingStops = {ID_txtPingReqCount, ID_cmdPing, ID_cmdAllTest};
// The access code's field is disabled and skipped.
const std::vector<int> kNexalStops = {ID_txtNxlibTimeOut, ID_txtTcpPortNo, ID_chkAccessCode, ID_cmdGetInfo};
const std::vector<int> kFtpStops = {ID_txtFtpUsername, ID_txtFtpPasswd, ID_cmdFtpConnect, ID_cmdAllFtpTest};

TEST_F(Keyboard, Tab_visits_the_controls_of_every_page_in_visual_order) {
  ExpectTabOrder(Start(), {kPingStops, kNexalStops, kFtpStops});
}

TEST_F(Keyboard, Tab_visits_an_enabled_access_code_field) {
  const WindowUnderTest window = Start();
  window.SelectTab(ID_tabMode, 1);
  window.Click(ID_chkAccessCode);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_txtAccessCode); }));
  window.SetFocus(ID_chkAccessCode);
  window.Press("Tab");
  window.WaitForFocus(ID_txtAccessCode);
}

/// Expects every access key to be unique on each page.
void ExpectUniqueAccessKeys(const WindowUnderTest& window, size_t pages) {
  ASSERT_EQ(window.StateOfTabs(ID_tabMode).captions.size(), pages);
  for (size_t page = 0; page < pages; ++page) {
    SCOPED_TRACE("page " + std::to_string(page));
    window.SelectTab(ID_tabMode, static_cast<int>(page));
    std::vector<std::string> captions = window.StateOfTabs(ID_tabMode).captions;
    for (const auto& control : window.Controls()) {
      // Not the pages themselves: for screen readers they have the captions of their tabs.
      const bool captioned = control.windowClass == "Static" || control.windowClass == "Button";
      if (control.visible && captioned) captions.push_back(control.text);
    }
    for (const auto& item : window.Menu()) {
      if (item.depth == 0) captions.push_back(item.caption);
    }
    std::map<char, std::string> taken;
    for (const std::string& caption : captions) {
      const size_t mark = caption.find('&');
      if (mark == std::string::npos) continue;
      const char letter = static_cast<char>(std::toupper(caption.at(mark + 1)));
      EXPECT_TRUE(taken.emplace(letter, caption).second) << caption << " and " << taken[letter];
    }
    // At least the menu, the pages, the address, the list and two controls of the page.
    EXPECT_GE(taken.size(), pages + 5);
  }
}

TEST_F(Keyboard, Access_keys_are_unique_on_every_page_in_both_languages) {
  for (const char* language : {"-LOCALEID 1033 -X 0", "-LOCALEID 1041 -X 0"})
    ExpectUniqueAccessKeys(Start(language), 3);
}

TEST_F(Keyboard, Enter_in_a_field_presses_the_first_button_of_the_page) {
  struct Case {
    int page;
    int box;
    const char* line;
  };
  constexpr Case kCases[] = {{1, ID_txtNxlibTimeOut, "Get System Information test...."},
                             {1, ID_txtTcpPortNo, "Get System Information test...."},
                             {2, ID_txtFtpUsername, "FTP Connect test..."},
                             {2, ID_txtFtpPasswd, "FTP Connect test..."}};
  for (const Case& each : kCases) {
    const WindowUnderTest window = Start();
    window.SetText(ID_cmbIPAddr, "127.0.0.1");
    window.SelectTab(ID_tabMode, each.page);
    window.SetFocus(each.box);
    window.Press("Enter");
    window.WaitForLine(ID_lstResult, each.line, kSoon);
    EXPECT_EQ(window.Focus(), each.box);
  }
}

TEST_F(Keyboard, Enter_in_the_ping_count_starts_the_check_unless_it_is_out_of_range) {
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "127.0.0.1");
  const std::vector<std::string> known = window.Lines(ID_lstResult);
  window.SetText(ID_txtPingReqCount, "-1");
  window.SetFocus(ID_txtPingReqCount);
  window.Press("Enter");
  Program().Answer(Program().WaitForBox(), BoxButton::Ok);
  EXPECT_EQ(window.Lines(ID_lstResult), known);
  window.SetText(ID_txtPingReqCount, "1");
  window.Press("Enter");
  window.WaitForChange(ID_lstResult, known, kSoon);
}

TEST_F(Keyboard, Only_a_whole_number_from_0_is_a_ping_count) {
  const WindowUnderTest window = Start();
  for (const char* count : {"0", "2147483647"}) {
    window.SetFocus(ID_txtPingReqCount);
    window.SetText(ID_txtPingReqCount, count);
    window.Press("Tab");
    window.WaitForFocus(ID_cmdPing);
  }
  for (const char* count : {"2147483648", "abc", ""}) {
    window.SetFocus(ID_txtPingReqCount);
    window.SetText(ID_txtPingReqCount, count);
    window.Press("Tab");
    const BoxUnderTest box = Program().WaitForBox();
    EXPECT_EQ(box.text, "0 to 2147483647 is required");
    Program().Answer(box, BoxButton::Ok);
    window.WaitForFocus(ID_txtPingReqCount);
    EXPECT_EQ(window.Text(ID_txtPingReqCount), count);
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

TEST_F(Keyboard, Number_fields_select_their_text_when_they_get_the_focus) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_cmdPing);
  window.SetFocus(ID_txtPingReqCount);
  window.Type(ID_txtPingReqCount, "9");
  EXPECT_EQ(window.Text(ID_txtPingReqCount), "9");
}

/// The general edition, which has the K7 pages.
class GeneralKeyboard : public WindowsTest<GeneralKeyboard> {
 protected:
  void SetUp() override {
    WindowsTest::SetUp();
    if (IsSkipped()) return;
    if (std::filesystem::path(ProgramPath()).parent_path().filename() != "x86")
      GTEST_SKIP() << "the general edition is 32-bit";
    if (!std::filesystem::exists(GeneralProgramPath()))
      GTEST_SKIP() << GeneralProgramPath() << " does not exist";
  }

  WindowUnderTest StartGeneral(const std::string& commandLine = {}) {
    StartOnly(commandLine, GeneralProgramPath());
    return WaitForMainWindow(Program());
  }
};

TEST_F(GeneralKeyboard, Tab_visits_the_controls_of_every_page_in_visual_order) {
  ExpectTabOrder(StartGeneral(), {kPingStops,
                                  kNexalStops,
                                  {ID_txtK7ApiTestCount, ID_cmdK7Api},
                                  {ID_cmdStartStopK7Server_1, ID_cmdStartStopK7Server_0, ID_cmdK7ServerDebug},
                                  kFtpStops});
}

TEST_F(GeneralKeyboard, Access_keys_are_unique_on_every_page_in_both_languages) {
  for (const char* language : {"-LOCALEID 1033 -X 0", "-LOCALEID 1041 -X 0"})
    ExpectUniqueAccessKeys(StartGeneral(language), 5);
}

TEST_F(GeneralKeyboard, The_access_keys_of_the_K7_pages_work_in_both_languages) {
  // A key pressed before the window is active again would be lost.
  const auto answer = [this](const WindowUnderTest& window, const BoxUnderTest& box, BoxButton button) {
    Program().Answer(box, button);
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.InForeground(); }));
  };
  for (const char* language : {"-LOCALEID 1033 -X 0", "-LOCALEID 1041 -X 0"}) {
    SCOPED_TRACE(language);
    const WindowUnderTest window = StartGeneral(language);
    window.SetText(ID_cmbIPAddr, "");
    window.Press("Alt+3");
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdK7Api); }));
    window.Press("Alt+C");
    window.WaitForFocus(ID_txtK7ApiTestCount);
    // Without an address the test shows an empty message box.
    window.Press("Alt+T");
    const BoxUnderTest box = Program().WaitForBox();
    EXPECT_EQ(box.text, "");
    answer(window, box, BoxButton::Ok);
    window.Press("Alt+4");
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Visible(ID_cmdK7ServerDebug); }));
    // There is no service: Stop asks first, and Debug focuses the stop button.
    window.Press("Alt+O");
    answer(window, Program().WaitForBox(), BoxButton::No);
    window.SetFocus(ID_cmdStartStopK7Server_1);
    window.Press("Alt+D");
    answer(window, Program().WaitForBox(), BoxButton::Ok);
    window.WaitForFocus(ID_cmdStartStopK7Server_0);
    // The first message box reports the failed start.
    window.Press("Alt+A");
    EXPECT_TRUE(Program().WaitForBox().text.find("K7Server") != std::string::npos);
  }
}

}  // namespace
}  // namespace tarvik::lab
