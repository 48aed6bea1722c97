#include "report/report_text.h"

#include <gtest/gtest.h>

namespace tarvik::report {
namespace {

std::string Utf8(std::wstring_view text, bool html = false) {
  std::string bytes;
  AppendUtf8(bytes, text, html, "|");
  return bytes;
}

std::wstring OneLine(std::wstring_view text, size_t maxLength) {
  std::wstring line = L"=";
  AppendOneLine(line, text, maxLength);
  return line.substr(1);
}

TEST(ReportTextTest, Characters_of_every_length_are_written_in_UTF_8) {
  EXPECT_EQ(Utf8(L"a\u00E9\u5171\uFF71"), "a\xC3\xA9\xE5\x85\xB1\xEF\xBD\xB1");
  const std::wstring pair = {0xD83D, 0xDE00};
  EXPECT_EQ(Utf8(pair), "\xF0\x9F\x98\x80");
  EXPECT_EQ(OneLine(pair, 10), pair);
}

TEST(ReportTextTest, What_a_program_would_obey_is_replaced) {
  constexpr const char* kReplaced = "\xEF\xBF\xBD";
  for (const int letter :
       {0x00, 0x1B, 0x7F, 0x85, 0xD800, 0xDFFF, 0x200E, 0x202E, 0x2028, 0x2066, 0xFEFF, 0xFFFE, 0x110000}) {
    const std::wstring text(1, static_cast<wchar_t>(letter));
    EXPECT_EQ(Utf8(text), kReplaced) << letter;
    EXPECT_EQ(OneLine(text, 10), L"\uFFFD") << letter;
  }
  EXPECT_EQ(Utf8(std::wstring{0xD83D, L'x'}), std::string(kReplaced) + "x");
  EXPECT_EQ(Utf8(std::wstring{0xDE00, 0xD83D}), std::string(kReplaced) + kReplaced);
}

TEST(ReportTextTest, Line_breaks_become_what_the_form_needs) {
  EXPECT_EQ(Utf8(L"a\tb\r\nc"), "a b |c");
  EXPECT_EQ(OneLine(L"a\r\nb\tc", 10), L"a  b c");
}

TEST(ReportTextTest, Markup_is_shown_as_text) {
  EXPECT_EQ(Utf8(L"<a b=\"c\" d='e'>&amp;", true), "&lt;a b=&quot;c&quot; d=&#39;e&#39;&gt;&amp;amp;");
  EXPECT_EQ(Utf8(L"<&>"), "<&>");
}

TEST(ReportTextTest, A_long_line_is_cut) {
  EXPECT_EQ(OneLine(L"abc", 3), L"abc");
  EXPECT_EQ(OneLine(L"abcd", 3), L"abc...");
}

TEST(ReportTextTest, Whole_words_that_are_secrets_are_masked_whatever_their_case) {
  EXPECT_EQ(Masked(L"331 Password required for Anna.", {L"anna"}), L"331 Password required for ***.");
  EXPECT_EQ(Masked(L"annabel joanna anna2 /anna/ ANNA", {L"anna"}), L"annabel joanna anna2 /***/ ***");
  EXPECT_EQ(Masked(L"anna anna,anna", {L"anna"}), L"*** ***,***");
  EXPECT_EQ(Masked(L"xx!! a!!b", {L"!!"}), L"xx*** a***b");
  EXPECT_EQ(Masked(L"user pass", {L"pass", L"user"}), L"*** ***");
  EXPECT_EQ(Masked(L"aaa aa", {L"aa"}), L"aaa ***");
  EXPECT_EQ(Masked(L"花子さん", {L"花子"}), L"***さん");
  EXPECT_EQ(Masked(L"text", {L"", L"longer than the text"}), L"text");
  EXPECT_EQ(Masked(L"", {L"x"}), L"");
}

}  // namespace
}  // namespace tarvik::report
