#include "bench/scenario_text.h"

#include <gtest/gtest.h>

namespace tarvik::bench {
namespace {

std::string TextErrorOf(std::string_view text) {
  try {
    ReadScenarioLines(text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "none";
}

ScenarioLine OneLine(std::string_view text) { return ReadScenarioLines(text).at(0); }

TEST(ScenarioText, Empty_lines_and_comments_are_skipped) {
  EXPECT_TRUE(ReadScenarioLines("").empty());
  EXPECT_TRUE(ReadScenarioLines("\n \t\r\n# model_type 31\n   # more").empty());
}

TEST(ScenarioText, Words_are_separated_by_spaces_and_end_at_a_comment) {
  const ScenarioLine line = OneLine("\tpmc D  0\t1 # 2\r\n");
  EXPECT_EQ(line.Name(), "pmc");
  ASSERT_EQ(line.Count(), 3U);
  EXPECT_EQ(line.Word(0), "D");
  EXPECT_EQ(line.Word(2), "1");
}

TEST(ScenarioText, A_hash_inside_a_word_does_not_begin_a_comment) {
  EXPECT_EQ(OneLine("a b#c").Word(0), "b#c");
}

TEST(ScenarioText, Quoted_words_keep_spaces_and_may_be_empty) {
  const ScenarioLine line = OneLine("a \" M\" \"\" \"#\"");
  ASSERT_EQ(line.Count(), 3U);
  EXPECT_EQ(line.Word(0), " M");
  EXPECT_EQ(line.Word(1), "");
  EXPECT_EQ(line.Word(2), "#");
}

TEST(ScenarioText, A_quoting_error_is_reported_with_its_line) {
  EXPECT_EQ(TextErrorOf("a\n\nb \"c"), "line 3: the quote is not closed");
  EXPECT_EQ(TextErrorOf("a \"b\"c"), "line 1: expected a space after the closing quote");
}

TEST(ScenarioText, More_than_a_megabyte_is_rejected) {
  EXPECT_EQ(TextErrorOf(std::string(1 << 20, ' ')), "none");
  EXPECT_NE(TextErrorOf(std::string((1 << 20) + 1, ' ')), "none");
}

TEST(ScenarioText, Missing_and_extra_arguments_are_rejected) {
  const ScenarioLine line = OneLine("a b c");
  EXPECT_NO_THROW(line.Expect(2, 2));
  EXPECT_THROW(line.Expect(3, 4), ScenarioError);
  EXPECT_THROW(line.Expect(0, 1), ScenarioError);
  EXPECT_THROW(line.Word(2), ScenarioError);
}

TEST(ScenarioText, Numbers_are_decimal_or_hexadecimal) {
  EXPECT_EQ(ParseNumber("12"), 12);
  EXPECT_EQ(ParseNumber("-12"), -12);
  EXPECT_EQ(ParseNumber("+12"), 12);
  EXPECT_EQ(ParseNumber("0x1F"), 31);
  EXPECT_EQ(ParseNumber("-0X10"), -16);
  EXPECT_EQ(ParseNumber("9223372036854775807"), INT64_MAX);
  for (const char* text : {"", "-", "--1", "0x", "1x", " 1", "1.5", "9223372036854775808"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
  }
}

TEST(ScenarioText, A_number_outside_its_range_is_rejected) {
  const ScenarioLine line = OneLine("a 5 x");
  EXPECT_EQ(line.Number(0, 5, 5), 5);
  EXPECT_THROW(line.Number(0, 6, 9), ScenarioError);
  EXPECT_THROW(line.Number(0, 0, 4), ScenarioError);
  EXPECT_THROW(line.Number(1, 0, 9), ScenarioError);
}

}  // namespace
}  // namespace tarvik::bench
