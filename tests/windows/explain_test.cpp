#include "lab/pc/window_parts.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

bool Overlap(const ScreenRect& a, const ScreenRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

/// The Explain window, which F1 opens.
template <typename Suite>
class ExplainTest : public WindowsTest<Suite> {
 protected:
  using Test = WindowsTest<Suite>;

  WindowUnderTest WaitForExplain() { return Test::Program().WaitForWindow(kExplainWindowClass); }
  WindowUnderTest Open(const WindowUnderTest& mainWindow) {
    mainWindow.Settle();
    mainWindow.Press("F1");
    return WaitForExplain();
  }
  static bool Says(const WindowUnderTest& window, const std::string& text) {
    return WaitUntil(kSoon, [&] { return window.Text(ID_txtExplanation).find(text) != std::string::npos; });
  }
  static int LetterHeight(const WindowUnderTest& window, int id) { return window.NeededFor(id).height; }
};

class Explain : public ExplainTest<Explain> {};

TEST_F(Explain, F1_opens_it_next_to_the_result_list) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  EXPECT_TRUE(Says(window, "Not tested yet"));
  EXPECT_TRUE(Says(window, "Do this now\r\n1.\u00A0\u00A0Type the CNC's address"));
  window.Settle();
  EXPECT_FALSE(Overlap(window.Rect(0), mainWindow.Rect(ID_lstResult)));
  window.WaitForFocus(ID_txtExplanation);
}

TEST_F(Explain, Its_text_is_a_fifth_larger_and_read_only) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  const int normal = LetterHeight(mainWindow, ID_lblResult);
  const int larger = LetterHeight(window, ID_txtExplanation);
  EXPECT_GE(larger * 100, normal * 115);
  EXPECT_LE(larger * 100, normal * 130);
  const std::string text = window.Text(ID_txtExplanation);
  window.Type(ID_txtExplanation, "typed");
  EXPECT_EQ(window.Text(ID_txtExplanation), text);
}

TEST_F(Explain, Ctrl_A_and_Ctrl_C_copy_the_whole_text_with_ordinary_spaces) {
  const WindowUnderTest window = Open(Start());
  Pc().SetClipboardText("before");
  window.SetFocus(ID_txtExplanation);
  window.Press("Ctrl+A");
  window.Press("Ctrl+C");
  std::string text = window.Text(ID_txtExplanation);
  for (size_t at = 0; (at = text.find("\u00A0")) != std::string::npos;) text.replace(at, 2, " ");
  const auto withoutEnd = [](std::string lines) {
    lines.resize(lines.find_last_not_of("\r\n") + 1);
    return lines;
  };
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    return withoutEnd(Pc().ClipboardText().value_or("")) == withoutEnd(text);
  })) << Pc().ClipboardText().value_or("(none)");
}

TEST_F(Explain, A_copy_that_fails_is_reported_in_the_caption_and_not_in_a_box) {
  const WindowUnderTest window = Open(Start());
  window.SetFocus(ID_txtExplanation);
  window.Press("Ctrl+A");
  Pc().HoldClipboard(std::chrono::milliseconds(3000));
  window.Press("Ctrl+C");
  window.WaitForText(0, "The clipboard is in use by another program. Try again.");
  EXPECT_FALSE(Program().HasBox());
  window.Press("F1");
  window.WaitForText(0, "Explanation - Tarvik");
}

TEST_F(Explain, Esc_closes_only_this_window_and_F1_opens_it_again) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  window.Press("Esc");
  window.WaitUntilGone();
  EXPECT_TRUE(Program().HasWindow(kMainWindowClass));
  EXPECT_TRUE(Says(Open(mainWindow), "Not tested yet"));
}

TEST_F(Explain, It_closes_with_the_main_window) {
  const WindowUnderTest mainWindow = Start();
  Open(mainWindow);
  mainWindow.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(Explain, It_does_not_keep_the_session_from_ending) {
  Open(Start());
  EXPECT_TRUE(Program().SessionMayEnd());
}

TEST_F(Explain, A_line_that_the_keyboard_selects_is_explained_in_the_same_window) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  mainWindow.SetFocus(ID_lstResult);
  mainWindow.Press("Home");
  mainWindow.Settle();
  mainWindow.Press("F1");
  EXPECT_TRUE(Says(window, "What Windows reports about its network at the start"));
  EXPECT_EQ(WaitForExplain().Handle(), window.Handle());
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.InForeground(); }));
}

TEST_F(Explain, A_click_on_the_status_bar_explains_the_field) {
  const WindowUnderTest mainWindow = Start();
  mainWindow.Settle();
  // The centre of the bar is in one of its fields.
  mainWindow.Click(ID_sbrRungs);
  EXPECT_TRUE(Says(WaitForExplain(), "Not tested yet"));
}

TEST_F(Explain, F1_in_a_message_box_explains_the_box_and_Esc_closes_only_the_explanation) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  mainWindow.SetText(ID_txtPingReqCount, "x");
  mainWindow.SetText(ID_cmbIPAddr, "127.0.0.1");
  mainWindow.SetFocus(ID_cmbIPAddr);
  mainWindow.Press("Enter");
  const BoxUnderTest box = Program().WaitForBox();
  EXPECT_FALSE(window.Enabled(0)) << "disabled like the other windows";
  WindowUnderTest(Pc(), box.handle).Press("F1");
  EXPECT_TRUE(Says(window, "[147] … is not a whole number."));
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(0); }));
  EXPECT_FALSE(mainWindow.Enabled(0));
  window.Press("Esc");
  window.WaitUntilGone();
  EXPECT_TRUE(Program().HasBox());
  Program().Answer(box, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return mainWindow.Enabled(0); }));
}

TEST_F(Explain, A_new_scaling_enlarges_text_and_window) {
  const WindowUnderTest window = Open(Start());
  window.Settle();
  const int height = LetterHeight(window, ID_txtExplanation);
  const ScreenRect first = window.Rect(0);
  const std::string text = window.Text(ID_txtExplanation);
  window.ChangeDpi(144, {first.left, first.top, first.width * 3 / 2, first.height * 3 / 2});
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return LetterHeight(window, ID_txtExplanation) * 10 > height * 13; }));
  window.Settle();
  const ScreenRect client = window.ClientRect(0);
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const ScreenRect view = window.Rect(ID_txtExplanation);
    return view.width == client.width && view.height == client.height;
  }));
  EXPECT_EQ(window.Text(ID_txtExplanation), text);
}

class ExplainWithoutLibraries : public ExplainTest<ExplainWithoutLibraries> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.programPath.clear();
    return options;
  }
};

TEST_F(ExplainWithoutLibraries, F1_explains_a_box_of_the_start_up_before_the_main_window_appears) {
  StartOnly();
  const BoxUnderTest box = Program().WaitForBox();
  WindowUnderTest(Pc(), box.handle).Press("F1");
  EXPECT_TRUE(Says(WaitForExplain(), "The maker's software was not found"));
  Program().Answer(box, BoxButton::Ok);
  Program().WaitForWindow(kMainWindowClass);
}

class ExplainAt200Percent : public ExplainTest<ExplainAt200Percent> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.dpi = 192;
    options.themed = true;
    return options;
  }
};

TEST_F(ExplainAt200Percent, Fits_the_screen_and_shows_the_text_twice_as_large) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest window = Open(mainWindow);
  window.Settle();
  const ScreenRect outer = window.Rect(0);
  EXPECT_GE(outer.left, 0);
  EXPECT_GE(outer.top, 0);
  EXPECT_LE(outer.left + outer.width, 1280);
  EXPECT_LE(outer.top + outer.height, 1024);
  EXPECT_GE(LetterHeight(window, ID_txtExplanation) * 100, LetterHeight(mainWindow, ID_lblResult) * 115);
}

class JapaneseExplain : public ExplainTest<JapaneseExplain> {
 public:
  static WindowsPc::Options Options() { return JapanesePcForTests(); }
};

TEST_F(JapaneseExplain, Is_in_Japanese_with_the_English_title) {
  const WindowUnderTest window = Open(Start());
  EXPECT_EQ(window.Text(0), "説明 - Tarvik");
  EXPECT_TRUE(Says(window, "未テスト / Not tested yet"));
  EXPECT_TRUE(Says(window, "今すること\r\n1.\u00A0\u00A0NCのアドレスを入力して"));
}

}  // namespace
}  // namespace tarvik::lab
