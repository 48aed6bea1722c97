// The driver through which all tests control Windows programs.

#include "app/control_ids.h"
#include "lab/pc/main_window.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class WindowDriver : public WindowsTest<WindowDriver> {};

TEST_F(WindowDriver, A_late_answer_is_not_mistaken_for_the_next_one) {
  const std::string process = Pc().Ask({"start", WindowsPath(ProgramPath()), "", ""}).at(0);
  Pc().Ask({"wait_window", process, "Form1", "60000"}, std::chrono::seconds(70));
  EXPECT_THROW(Pc().Ask({"wait_window", process, "NoSuchClass", "1000"}, std::chrono::milliseconds(1)),
               LabError);
  EXPECT_EQ(Pc().Ask({"runs", process}), std::vector<std::string>{"1"});
  Pc().Ask({"kill", process});
}

TEST_F(WindowDriver, A_time_out_reports_what_the_processes_wait_for) {
  Pc().ClipboardText();  // the driver has started
  try {
    Pc().Ask({"wait_window", "0", "NoSuchClass", "1000"}, std::chrono::milliseconds(1));
    FAIL();
  } catch (const LabError& error) {
    const std::string text = error.what();
    EXPECT_NE(text.find("wait_window"), std::string::npos) << text;
    EXPECT_NE(text.find("window_driver.e: "), std::string::npos) << text;
  }
}

TEST_F(WindowDriver, Programs_are_started_without_random_addresses) {
  EXPECT_EQ(lab::Run({"cat", "/proc/self/personality"}).output, "00040000\n");
}

TEST_F(WindowDriver, A_box_that_closes_while_it_is_read_is_not_the_one_to_wait_for) {
  ProgramUnderTest program(Pc(), fs::path(ProgramPath()).parent_path() / "closing_box.exe");
  const BoxUnderTest box = program.WaitForBox();
  EXPECT_EQ(box.title, "Second");
  program.Answer(box, BoxButton::Ok);
  EXPECT_EQ(program.WaitForEnd(), 0U);
}

TEST_F(WindowDriver, Boxes_are_counted_when_one_is_opened_from_within_another) {
  ProgramUnderTest program(Pc(), ProgramPath());
  const WindowUnderTest window = WaitForMainWindow(program, {.onBox = [](const BoxUnderTest&) {}});
  window.SetText(ID_txtPingReqCount, "x");
  EXPECT_EQ(program.CountBoxes(), 0);
  window.Click(ID_cmdPing);
  const BoxUnderTest outer = program.WaitForBox();
  EXPECT_EQ(program.CountBoxes(), 1);
  window.Click(ID_cmdPing);  // the driver's click reaches a disabled window, too
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return program.CountBoxes() == 2; }));
  program.Answer(outer, BoxButton::Ok);
  // This is why the monkey does not expect a disabled window then.
  EXPECT_TRUE(window.Enabled(0));
  EXPECT_EQ(program.CountBoxes(), 2) << "The outer one only becomes invisible until the inner one is closed.";
  program.Answer(program.WaitForBox(), BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return program.CountBoxes() == 0; }));
}

}  // namespace
}  // namespace tarvik::lab
