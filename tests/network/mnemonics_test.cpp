// The Alt keys of every page. They start runs, so these tests need a network.

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

class Mnemonics : public LabTest<Mnemonics> {
 protected:
  /// Starts the program with the page in front and a reachable address.
  WindowUnderTest StartOnPage(const char* language, int page) {
    const WindowUnderTest window = Start(std::string("-PING_N 1 -LOCALEID ") + language + " -X");
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SelectTab(ID_tabMode, page);
    window.SetFocus(ID_lstResult);
    return window;
  }

  void ExpectFocus(const WindowUnderTest& window, const char* keys, int id) {
    SCOPED_TRACE(keys);
    window.Press(keys);
    window.WaitForFocus(id);
  }

  void ExpectRun(const WindowUnderTest& window, const char* keys) {
    SCOPED_TRACE(keys);
    window.EmptyList(ID_lstResult);
    window.Press(keys);
    window.WaitForLine(ID_lstResult, "PING test...", kSoon);
    window.WaitForText(ID_cmdPing, "&Ping");
  }
};

TEST_F(Mnemonics, Select_the_pages_the_address_and_the_list) {
  for (const char* language : {"1033", "1041"}) {
    SCOPED_TRACE(language);
    const WindowUnderTest window = StartOnPage(language, 0);
    constexpr std::pair<const char*, int> kPages[] = {
        {"Alt+2", ID_cmdGetInfo}, {"Alt+5", ID_cmdFtpConnect}, {"Alt+1", ID_cmdPing}};
    for (const auto& [keys, control] : kPages) {
      window.Press(keys);
      EXPECT_TRUE(WaitUntil(kSoon, [&, shown = control] { return window.Visible(shown); })) << keys;
      ExpectFocus(window, "Alt+N", ID_cmbIPAddr);
      ExpectFocus(window, "Alt+E", ID_lstResult);
    }
  }
}

TEST_F(Mnemonics, Of_the_Ping_page_work_in_both_languages) {
  for (const char* language : {"1033", "1041"}) {
    SCOPED_TRACE(language);
    const WindowUnderTest window = StartOnPage(language, 0);
    ExpectFocus(window, "Alt+C", ID_txtPingReqCount);
    ExpectRun(window, "Alt+P");
    ExpectRun(window, "Alt+A");
  }
}

TEST_F(Mnemonics, Of_the_NEXAL2_page_work_in_both_languages) {
  for (const char* language : {"1033", "1041"}) {
    SCOPED_TRACE(language);
    const WindowUnderTest window = StartOnPage(language, 1);
    ExpectFocus(window, "Alt+O", ID_txtNxlibTimeOut);
    ExpectFocus(window, "Alt+R", ID_txtTcpPortNo);
    window.Press("Alt+A");
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Checked(ID_chkAccessCode); }));
    EXPECT_TRUE(window.Enabled(ID_txtAccessCode));
    // Starts a run. It ends with a message box, which returns the focus to the button.
    window.Press("Alt+G");
    Program().Answer(Program().WaitForBox(), BoxButton::Ok);
    window.WaitForFocus(ID_cmdGetInfo);
  }
}

TEST_F(Mnemonics, Of_the_Ftp_page_work_in_both_languages) {
  for (const char* language : {"1033", "1041"}) {
    SCOPED_TRACE(language);
    const WindowUnderTest window = StartOnPage(language, 2);
    ExpectFocus(window, "Alt+U", ID_txtFtpUsername);
    ExpectFocus(window, "Alt+W", ID_txtFtpPasswd);
    ExpectRun(window, "Alt+A");
    ExpectFocus(window, "Alt+C", ID_cmdFtpConnect);
  }
}

}  // namespace
}  // namespace tarvik::lab
