#include <optional>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

/// The PMC window, opened by the command that the menu does not show.
template <typename Suite>
class PmcWindowTest : public WindowsTest<Suite> {
 protected:
  WindowUnderTest Open(const std::string& commandLine = {}) {
    main_.emplace(this->Start(commandLine));
    main_->InvokeCommand(ID_mnuPMC);
    return this->Program().WaitForWindow("frmPmcTest");
  }
  const WindowUnderTest& Main() { return *main_; }

 private:
  std::optional<WindowUnderTest> main_;
};

class PmcWindow : public PmcWindowTest<PmcWindow> {};

TEST_F(PmcWindow, Opens_with_captions_and_defaults) {
  const WindowUnderTest window = Open();
  constexpr std::pair<int, const char*> kTexts[] = {
      {0, "PMC Read Test"},
      {ID_Label1_0, "PMC Addr."},
      {ID_Label1_1, "StartNo"},
      {ID_Label1_2, "Length"},
      {ID_Label1_3, "Test"},
      {ID_Label1_4, "Read Int."},
      {ID_Label1_5, "Result Data"},
      {ID_Label1_6, "Result (OK/ERR)"},
      {ID_cmdRead, "Read(&R)"},
      {ID_cmdStop, "Stop(&S)"},
      {ID_cmdClose, "Close(&X)"},
      {ID_cmbPmcAddr, "D"},
      {ID_txtPmcStart, "0"},
      {ID_txtPmcLen, "1"},
      {ID_txtCount, "10"},
      {ID_txtSleep, "1000"},
      {ID_lblCount, ""},
  };
  for (const auto& [id, text] : kTexts) EXPECT_EQ(window.Text(id), text) << id;
  EXPECT_TRUE(window.Enabled(ID_cmdRead));
  EXPECT_FALSE(window.Enabled(ID_cmdStop));
  EXPECT_TRUE(window.Enabled(ID_cmdClose));
}

TEST_F(PmcWindow, Has_a_drop_down_list_of_thirteen_letters) {
  const WindowUnderTest window = Open();
  EXPECT_EQ(window.ComboItems(ID_cmbPmcAddr),
            (std::vector<std::string>{"G", "F", "Y", "X", "A", "R", "T", "K", "C", "D", "M", "N", "E"}));
  EXPECT_EQ(window.ClassName(ID_cmbPmcAddr), "ComboBox");
  constexpr uint32_t kDropDownList = 3;
  EXPECT_EQ(window.Style(ID_cmbPmcAddr) & 3U, kDropDownList);
  window.SetFocus(ID_cmbPmcAddr);
  window.Press("R");
  window.WaitForText(ID_cmbPmcAddr, "R");
  EXPECT_FALSE(Program().HasBox()) << "the letter pressed a button";
}

TEST_F(PmcWindow, Tab_visits_the_controls_in_visual_order) {
  const WindowUnderTest window = Open();
  window.SetFocus(ID_cmbPmcAddr);
  for (const int id : {ID_txtPmcStart, ID_txtPmcLen, ID_txtCount, ID_txtSleep, ID_lstData, ID_pmc_lstResult,
                       ID_cmdRead, ID_cmdClose, ID_cmbPmcAddr}) {
    window.Press("Tab");
    window.WaitForFocus(id);
  }
}

TEST_F(PmcWindow, Enter_in_its_fields_presses_Read) {
  const WindowUnderTest window = Open();
  for (const int id : {ID_cmbPmcAddr, ID_txtPmcStart, ID_txtPmcLen, ID_txtCount, ID_txtSleep}) {
    window.SetFocus(id);
    window.Press("Enter");
    const BoxUnderTest box = Program().WaitForBox();
    EXPECT_TRUE(box.text.starts_with("Allocate Handle error=")) << id << ": " << box.text;
    Program().Answer(box, BoxButton::Ok);
    // A key pressed before the end of the run would not start the next one.
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
  }
}

TEST_F(PmcWindow, Its_fields_are_named_by_the_label_before_them) {
  const WindowUnderTest window = Open();
  constexpr std::pair<int, int> kLabels[] = {
      {ID_cmbPmcAddr, ID_Label1_0},    {ID_txtPmcStart, ID_Label1_1}, {ID_txtPmcLen, ID_Label1_2},
      {ID_txtCount, ID_Label1_3},      {ID_txtSleep, ID_Label1_4},    {ID_lstData, ID_Label1_5},
      {ID_pmc_lstResult, ID_Label1_6},
  };
  for (const auto& [field, label] : kLabels) EXPECT_EQ(window.Previous(field).id, label);
}

TEST_F(PmcWindow, Leaves_the_main_window_usable) {
  const WindowUnderTest window = Open();
  EXPECT_TRUE(Main().Enabled(0));
  Main().SetText(ID_txtPingReqCount, "7");
  EXPECT_EQ(Main().Text(ID_txtPingReqCount), "7");
  Main().Press("Alt+2");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Main().Visible(ID_cmdGetInfo); }));
  EXPECT_TRUE(window.Visible(0));
}

TEST_F(PmcWindow, Exists_once_and_can_be_opened_again_after_closing) {
  const WindowUnderTest window = Open();
  Main().InvokeCommand(ID_mnuPMC);
  Main().Settle();
  EXPECT_EQ(Program().WaitForWindow("frmPmcTest").Handle(), window.Handle());
  window.Click(ID_cmdClose);
  window.WaitUntilGone();
  Main().InvokeCommand(ID_mnuPMC);
  const WindowUnderTest again = Program().WaitForWindow("frmPmcTest");
  EXPECT_EQ(again.Text(ID_cmbPmcAddr), "D");
  again.SetFocus(ID_txtPmcStart);
  again.Press("Alt+X");
  again.WaitUntilGone();
  EXPECT_TRUE(Program().Runs());
}

TEST_F(PmcWindow, Does_not_keep_the_program_from_ending) {
  Open();
  Main().Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(PmcWindow, Its_close_button_leaves_the_main_window_open) {
  const WindowUnderTest window = Open();
  window.Close();
  window.WaitUntilGone();
  EXPECT_TRUE(Program().HasWindow("Form1"));
}

TEST_F(PmcWindow, Grows_only_its_log_and_keeps_its_minimum_size) {
  const WindowUnderTest window = Open();
  const ScreenRect outer = window.Rect(0);
  const ScreenRect log = window.Rect(ID_pmc_lstResult);
  window.Move({outer.left, outer.top, outer.width + 70, outer.height + 50});
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const ScreenRect now = window.Rect(ID_pmc_lstResult);
    return now.width == log.width + 70 && now.height == log.height + 50;
  }));
  window.Move({outer.left, outer.top, outer.width - 60, outer.height - 60});
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const ScreenRect now = window.Rect(0);
    return now.width == outer.width && now.height == outer.height;
  }));
}

TEST_F(PmcWindow, Is_active_again_after_its_message_boxes) {
  const WindowUnderTest window = Open();
  Main().SetText(ID_txtTcpPortNo, "port");
  window.BringToForeground();
  window.Click(ID_cmdRead);
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_NE(box.text.find("\"port\""), std::string::npos) << box.text;
  EXPECT_FALSE(window.Enabled(0));
  Program().Answer(box, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.InForeground(); }));
  window.WaitForFocus(ID_cmdRead);
}

class PmcWindowWithoutLibrary : public PmcWindowTest<PmcWindowWithoutLibrary> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.programPath.clear();
    return options;
  }

 protected:
  WindowUnderTest OpenWithoutLibraries() {
    StartOnly();
    // The first message box reports the missing configuration library.
    Program().Answer(Program().WaitForBox(), BoxButton::Ok);
    const WindowUnderTest main = Program().WaitForWindow("Form1");
    main.InvokeCommand(ID_mnuPMC);
    return Program().WaitForWindow("frmPmcTest");
  }
};

TEST_F(PmcWindowWithoutLibrary, Reports_the_missing_library_and_stays_usable) {
  const WindowUnderTest window = OpenWithoutLibraries();
  window.Click(ID_cmdRead);
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_TRUE(box.text.starts_with("NxLib32.dll cannot be loaded.\r\nERROR: 2 - ")) << box.text;
  EXPECT_EQ(box.icon, "critical");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead) && window.Enabled(ID_cmdClose); }));
  EXPECT_FALSE(window.Enabled(ID_cmdStop));
  window.Click(ID_cmdClose);
  window.WaitUntilGone();
}

class JapanesePmcWindow : public PmcWindowTest<JapanesePmcWindow> {
 public:
  static WindowsPc::Options Options() { return JapanesePcForTests(); }
};

TEST_F(JapanesePmcWindow, Has_the_captions_of_the_Japanese_language_file) {
  const WindowUnderTest window = Open();
  constexpr std::pair<int, const char*> kTexts[] = {
      {0, "PMC Read Test"},          {ID_Label1_0, "PMCｱﾄﾞﾚｽ"},          {ID_Label1_1, "開始番号"},
      {ID_Label1_2, "ﾃﾞｰﾀ長"},       {ID_Label1_3, "ﾃｽﾄ回数"},           {ID_Label1_4, "読取周期"},
      {ID_Label1_5, "読取 PMCﾃﾞｰﾀ"}, {ID_Label1_6, "読取結果 (OK/ERR)"}, {ID_cmdRead, "読取(&R)"},
      {ID_cmdStop, "停止(&S)"},      {ID_cmdClose, "終了(&X)"},
  };
  for (const auto& [id, text] : kTexts) EXPECT_EQ(window.Text(id), text) << id;
}

}  // namespace
}  // namespace tarvik::lab
