#include "lab/pc/window_parts.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

using Texts = std::vector<std::string>;

/// The status bar and the line of the answer.
class AnswerArea : public WindowsTest<AnswerArea> {
 protected:
  static Texts FieldTexts(const WindowUnderTest& window) {
    Texts texts;
    for (const auto& field : window.StatusFields(ID_sbrRungs)) texts.push_back(field.text);
    return texts;
  }
  /// The bar is along the bottom edge, and its last field ends before the grip.
  static bool InPlace(const WindowUnderTest& window) {
    const ScreenRect client = window.ClientRect(0);
    const ScreenRect bar = window.Rect(ID_sbrRungs);
    const ScreenRect list = window.Rect(ID_lstResult);
    const ScreenRect answer = window.Rect(ID_lblAnswer);
    const ScreenRect last = window.StatusFields(ID_sbrRungs).back().rect;
    return bar.left == client.left && bar.width == client.width &&
           bar.top + bar.height == client.top + client.height && list.top + list.height < bar.top &&
           answer.left + answer.width == list.left + list.width && last.left + last.width < bar.width - 8;
  }
};

TEST_F(AnswerArea, The_status_bar_has_a_field_for_each_rung) {
  EXPECT_EQ(FieldTexts(Start()), (Texts{"Name –", "PC –", "Gateway –", "Target –", "NEXAL2 –", "FTP –"}));
  EXPECT_EQ(FieldTexts(Start("-LOCALEID 1041 -X 0")),
            (Texts{"名前 －", "PC －", "ｹﾞｰﾄｳｪｲ －", "相手 －", "NEXAL2 －", "FTP －"}));
}

TEST_F(AnswerArea, The_tool_tip_of_a_field_has_its_whole_text) {
  const WindowUnderTest window = Start();
  window.BringToForeground();
  window.Hover(ID_sbrRungs);
  const auto beginsWith = [&](int field, const std::string& name) {
    return window.ToolTipOfField(ID_sbrRungs, field).rfind(name + ": ", 0) == 0;
  };
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return beginsWith(0, "Name"); }));
  EXPECT_TRUE(beginsWith(5, "FTP"));
}

TEST_F(AnswerArea, It_keeps_its_place_when_the_window_is_resized) {
  const WindowUnderTest window = Start();
  window.Settle();
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return InPlace(window); }));
  const ScreenRect outer = window.Rect(0);
  window.Move({outer.left, outer.top, outer.width + 150, outer.height + 90});
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Rect(0).width == outer.width + 150 && InPlace(window); }));
  window.Move(outer);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Rect(0).width == outer.width && InPlace(window); }));
}

TEST_F(AnswerArea, After_a_click_on_it_the_focus_is_where_it_was_and_Tab_passes_it) {
  const WindowUnderTest window = Start();
  window.SetFocus(ID_lstResult);
  window.Click(ID_sbrRungs);
  Program().WaitForWindow(kExplainWindowClass).Press("Esc");
  window.WaitForFocus(ID_lstResult);
  window.Press("Tab");
  window.WaitForFocus(ID_cmbIPAddr);
}

TEST_F(AnswerArea, A_line_that_is_too_long_is_cut_off_with_an_ellipsis_on_one_line) {
  constexpr uint32_t kEndEllipsis = 0x4000;
  const WindowUnderTest window = Start();
  EXPECT_NE(window.Style(ID_lblAnswer) & kEndEllipsis, 0U);
  EXPECT_EQ(window.Rect(ID_lblAnswer).height, window.Rect(ID_lblResult).height);
}

/// PCs with and without the face of the result list.
class ListFace : public testing::Test {
 protected:
  /// On an English PC, whose message font is not fixed-pitch. `face` is missing there without a substitute.
  static void ExpectPitch(const char* face, const char* substitute, const std::string& commandLine,
                          bool fixed) {
    if (const auto reason = WindowsUnsupportedReason()) GTEST_SKIP() << *reason;
    WindowsPc pc(PcForTests());
    if (substitute != nullptr)
      pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, "Software\\Wine\\Fonts\\Replacements", face,
                                   "\"" + std::string(substitute) + "\"");
    ProgramUnderTest program(pc, ProgramPath(), commandLine);
    const WindowUnderTest window = WaitForMainWindow(program);
    const auto width = [&](const char* line) { return window.WidthOfLine(ID_lstResult, line, 44); };
    EXPECT_EQ(width("iiii") == width("WWWW"), fixed);
    if (std::string(face) == "MS Gothic") EXPECT_EQ(width("漢字"), width("WWWW"));
  }
};

TEST_F(ListFace, Is_Consolas_where_it_is_present) { ExpectPitch("Consolas", "DejaVu Sans Mono", "", true); }

TEST_F(ListFace, Is_the_message_font_where_Consolas_is_missing) {
  ExpectPitch("Consolas", nullptr, "", false);
}

TEST_F(ListFace, Is_MS_Gothic_for_Japanese_texts) {
  ExpectPitch("MS Gothic", "IPAGothic", "-LOCALEID 1041 -X 0", true);
}

/// A PC with a German keyboard. Wine itself types nothing with the decimal key of its keypad.
class GermanKeypad : public WindowsTest<GermanKeypad> {
 public:
  static void PreparePc(WindowsPc& pc) { RunOrThrow({"setxkbmap", "-display", pc.Screen().Display(), "de"}); }
};

TEST_F(GermanKeypad, Types_a_dot_into_the_address_and_a_comma_elsewhere) {
  const WindowUnderTest window = Start();
  window.SetText(ID_cmbIPAddr, "");
  window.Type(ID_cmbIPAddr, "1");
  window.TypeDecimalComma(ID_cmbIPAddr);
  window.Type(ID_cmbIPAddr, "2,3");
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "1.23");
  window.SetText(ID_txtPingReqCount, "");
  window.TypeDecimalComma(ID_txtPingReqCount);
  EXPECT_EQ(window.Text(ID_txtPingReqCount), ",");
}

}  // namespace
}  // namespace tarvik::lab
