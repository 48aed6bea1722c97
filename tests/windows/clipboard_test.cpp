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

TEST_F(Copying, Copying_an_empty_list_gives_an_empty_text) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.EmptyList(ID_lstResult);
  window.DoubleClick(ID_lstResult);
  ExpectClipboard("");
}

TEST_F(Copying, Waits_for_a_program_that_keeps_the_clipboard_open_briefly) {
  const WindowUnderTest window = Start();
  Pc().SetClipboardText("before");
  window.EmptyList(ID_lstResult);
  Pc().HoldClipboard(milliseconds(500));
  window.DoubleClick(ID_lstResult);
  ExpectClipboard("");
  EXPECT_FALSE(Program().HasBox());
}

TEST_F(Copying, A_clipboard_that_stays_open_is_reported_once_and_keeps_its_content) {
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
    // The six lines of the start-up report are replaced.
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.LineCount(ID_lstResult) != 6; }));
    window.Settle();
    EXPECT_EQ(Pc().ClipboardText(), text);
    return window.Lines(ID_lstResult);
  }
};

TEST_F(Pasting, Splits_the_text_at_its_line_breaks) { EXPECT_EQ(Pasted("x\r\ny"), (Lines{"x", "y"})); }

TEST_F(Pasting, A_final_line_break_adds_an_empty_line) {
  EXPECT_EQ(Pasted("x\r\ny\r\n"), (Lines{"x", "y", ""}));
}

TEST_F(Pasting, Japanese_text_is_kept) { EXPECT_EQ(Pasted("x\r\n日本語\r\n"), (Lines{"x", "日本語", ""})); }

TEST_F(Pasting, Accepts_more_lines_than_a_test_may_write) {
  std::string text = "0";
  for (int i = 1; i < 1500; ++i) text += "\r\n" + std::to_string(i);
  const Lines lines = Pasted(text);
  ASSERT_EQ(lines.size(), 1500u);
  EXPECT_EQ(lines.front(), "0");
  EXPECT_EQ(lines.back(), "1499");
}

}  // namespace
}  // namespace tarvik::lab
