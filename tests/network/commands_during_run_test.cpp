// The commands of the result list during a run.

#include <filesystem>

#include "lab/pc/window_parts.h"
#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

class CommandsDuringRun : public LabTest<CommandsDuringRun> {
 protected:
  WindowUnderTest StartLongRun() {
    const WindowUnderTest window = Start(std::string("-LANGID 1 -PING_N 600 ") + kNearAddress);
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window) && window.LineCount(ID_lstResult) >= 2; }));
    return window;
  }
  /// Opens the context menu, reads its last command, and presses the key in it.
  WindowUnderTest::MenuItem LastCommand(const WindowUnderTest& window, const char* key) {
    window.RightClickLine(ID_lstResult, 0);
    const WindowUnderTest menu = Program().WaitForWindow(kOpenMenuClass);
    const WindowUnderTest::MenuItem last = menu.Menu().back();
    window.Press(key);
    menu.WaitUntilGone();
    return last;
  }
  static void ExpectRunGoesOn(const WindowUnderTest& window) {
    EXPECT_TRUE(RunIsActive(window));
    window.WaitForChange(ID_lstResult, window.Lines(ID_lstResult), kSoon);
  }
  static void Stop(const WindowUnderTest& window) {
    window.Press("Esc");
    window.WaitForText(ID_cmdPing, "&Ping");
  }
};

TEST_F(CommandsDuringRun, The_report_can_be_copied) {
  const WindowUnderTest window = StartLongRun();
  Pc().SetClipboardText("before");
  window.Press("Ctrl+Shift+C");
  EXPECT_TRUE(WaitUntil(kSoon, [] { return Pc().ClipboardText().value_or("").starts_with("Tarvik "); }));
  ExpectRunGoesOn(window);
  Stop(window);
}

TEST_F(CommandsDuringRun, The_report_can_be_saved_and_the_run_goes_on_afterwards) {
  constexpr int kNameField = 0x47C;  // cmb13
  const TempDirectory directory(PcForTests().cacheFolder);
  const WindowUnderTest window = StartLongRun();
  window.Press("Ctrl+S");
  const BoxUnderTest dialog = Program().WaitForBox();
  WindowUnderTest(Pc(), dialog.handle).SetText(kNameField, WindowsPath(directory.Path()) + "\\run.html");
  Program().Answer(dialog, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return std::filesystem::exists(directory.Path() + "/run.html"); }));
  ExpectRunGoesOn(window);
  Stop(window);
}

TEST_F(CommandsDuringRun, The_list_cannot_be_cleared_until_the_run_has_ended) {
  const WindowUnderTest window = StartLongRun();
  EXPECT_FALSE(LastCommand(window, "T").enabled);
  EXPECT_GE(window.LineCount(ID_lstResult), 2);
  window.InvokeCommand(ID_mnuClearList);
  EXPECT_GE(window.LineCount(ID_lstResult), 2);
  ExpectRunGoesOn(window);
  Stop(window);
  EXPECT_TRUE(LastCommand(window, "T").enabled);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) == 0; }));
}

TEST_F(CommandsDuringRun, F1_explains_the_run_and_Esc_in_the_explanation_does_not_stop_it) {
  const WindowUnderTest window = StartLongRun();
  window.Press("F1");
  const WindowUnderTest explain = Program().WaitForWindow(kExplainWindowClass);
  EXPECT_TRUE(WaitUntil(
      kSoon, [&] { return explain.Text(ID_txtExplanation).find("A test is running") != std::string::npos; }));
  EXPECT_TRUE(explain.Enabled(0));
  ExpectRunGoesOn(window);
  explain.Press("Esc");
  explain.WaitUntilGone();
  ExpectRunGoesOn(window);
  Stop(window);
}

}  // namespace
}  // namespace tarvik::lab
