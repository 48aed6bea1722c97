#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

class Copying : public WindowsTest<Copying> {
 protected:
  void ExpectClipboard(const std::string& text) {
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return Pc().ClipboardText() == text; }))
        << Pc().ClipboardText().value_or("(none)");
  }
};

TEST_F(Copying, A_double_click_copies_every_line_with_its_line_break) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  const Lines lines = window.Lines(ID_lstResult);
  std::string expected;
  for (const std::string& line : lines) expected += line + "\r\n";
  window.DoubleClick(ID_lstResult);
  ExpectClipboard(expected);
  EXPECT_EQ(window.Lines(ID_lstResult), lines);
}

TEST_F(Copying, An_empty_list_leaves_an_empty_text) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.EmptyList(ID_lstResult);
  window.DoubleClick(ID_lstResult);
  ExpectClipboard("");
}

TEST_F(Copying, Waits_for_a_program_that_has_the_clipboard_for_a_moment) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.EmptyList(ID_lstResult);
  Pc().HoldClipboard(milliseconds(500));
  window.DoubleClick(ID_lstResult);
  ExpectClipboard("");
  EXPECT_FALSE(Program().HasBox());
}

TEST_F(Copying, A_program_that_keeps_the_clipboard_is_told_in_one_box_and_the_old_content_stays) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  Pc().HoldClipboard(milliseconds(3000));
  window.DoubleClick(ID_lstResult);
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_EQ(box.text, "The clipboard is in use by another program. Try again.");
  Program().Answer(box, BoxButton::Ok);
  window.Settle();
  EXPECT_FALSE(Program().HasBox());
  ExpectClipboard("before");
}

class Pasting : public WindowsTest<Pasting> {
 protected:
  /// The lines after a double click with that text on the clipboard.
  Lines Pasted(const std::string& text) {
    Pc().SetClipboardText(text);
    const WindowUnderTest window = Start("-X 16 -PING_N");
    window.DoubleClick(ID_lstResult);
    // The lines of the start-up are gone then.
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) != 6; }));
    window.Settle();
    EXPECT_EQ(Pc().ClipboardText(), text);
    return window.Lines(ID_lstResult);
  }
};

TEST_F(Pasting, Cuts_the_text_at_its_line_breaks) { EXPECT_EQ(Pasted("x\r\ny"), (Lines{"x", "y"})); }

TEST_F(Pasting, A_line_break_at_the_end_gives_a_last_empty_line) {
  EXPECT_EQ(Pasted("x\r\ny\r\n"), (Lines{"x", "y", ""}));
}

TEST_F(Pasting, Japanese_text_comes_back_whole) {
  EXPECT_EQ(Pasted("x\r\n日本語\r\n"), (Lines{"x", "日本語", ""}));
}

TEST_F(Pasting, Takes_more_lines_than_a_test_may_write) {
  std::string text = "0";
  for (int i = 1; i < 1500; ++i) text += "\r\n" + std::to_string(i);
  const Lines lines = Pasted(text);
  ASSERT_EQ(lines.size(), 1500u);
  EXPECT_EQ(lines.front(), "0");
  EXPECT_EQ(lines.back(), "1499");
}

}  // namespace
}  // namespace tarvik::lab
