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

/// Two message boxes of the main window, one opened from within the other: the driver's clicks reach a
/// disabled window, too. The monkey relies on how they enable it.
struct NestedBoxes {
  explicit NestedBoxes(WindowsPc& pc) : program(pc, ProgramPath()) {
    window.SetText(ID_txtPingReqCount, "x");
    window.Click(ID_cmdPing);
    outer = program.WaitForBox();
    window.Click(ID_cmdPing);
    if (!WaitUntil(kSoon, [this] { return (inner = program.WaitForBox()).handle != outer.handle; }))
      throw LabError("The second click has opened no box");
  }

  ProgramUnderTest program;
  WindowUnderTest window = WaitForMainWindow(program, {.onBox = [](const BoxUnderTest&) {}});
  BoxUnderTest outer;
  BoxUnderTest inner;
};

TEST_F(WindowDriver, An_answered_outer_box_enables_its_owner_and_exists_until_the_inner_one_is_closed) {
  NestedBoxes boxes(Pc());
  boxes.program.Answer(boxes.outer, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return boxes.window.Enabled(0); }));
  EXPECT_EQ(boxes.program.Boxes().size(), 2U);
  boxes.program.Answer(boxes.inner, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return boxes.program.Boxes().empty(); }));
}

TEST_F(WindowDriver, An_answered_inner_box_enables_its_owner_before_the_outer_one_is_closed) {
  NestedBoxes boxes(Pc());
  boxes.program.Answer(boxes.inner, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return boxes.window.Enabled(0); }));
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return boxes.program.Boxes().size() == 1; }));
  EXPECT_EQ(boxes.program.Boxes(), std::vector<std::string>{boxes.outer.handle});
  boxes.program.Answer(boxes.outer, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return boxes.program.Boxes().empty(); }));
}

}  // namespace
}  // namespace tarvik::lab
