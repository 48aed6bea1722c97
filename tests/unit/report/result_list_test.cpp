#include "report/result_list.h"

#include <gtest/gtest.h>

namespace tarvik::report {
namespace {

using Lines = std::vector<std::wstring>;

class ResultListTest : public testing::Test {
 protected:
  /// A list of that many lines; more than 1,001 of them are pasted.
  void Fill(int lines) {
    std::wstring text = L"line";
    for (int i = 1; i < lines; ++i) text += L"\r\nline";
    list.ShowPasted(text);
    if (lines == 0) list.ClearList();
  }

  ResultList list;
};

TEST_F(ResultListTest, A_line_is_appended_unchanged) {
  list.AddToList(L"  one ");
  list.AddToList(L"two");
  EXPECT_EQ(list.Lines(), (Lines{L"  one ", L"two"}));
}

TEST_F(ResultListTest, With_1000_lines_the_next_makes_1001) {
  Fill(1000);
  list.AddToList(L"new");
  EXPECT_EQ(list.Lines().size(), 1001U);
}

TEST_F(ResultListTest, With_1001_lines_the_next_is_the_only_one) {
  Fill(1001);
  list.AddToList(L"new");
  EXPECT_EQ(list.Lines(), Lines{L"new"});
}

TEST_F(ResultListTest, A_batch_has_the_same_result_as_its_lines_one_by_one) {
  for (const int held : {0, 1, 999, 1000, 1001, 1002}) {
    for (const int added : {0, 1, 2, 1000, 1001, 1002, 2003, 5000}) {
      Lines lines;
      for (int i = 0; i < added; ++i) lines.push_back(std::to_wstring(i));
      Fill(held);
      for (const std::wstring& line : lines) list.AddToList(line);
      const Lines oneByOne = list.Lines();
      Fill(held);
      list.AddBatch(lines);
      EXPECT_EQ(list.Lines(), oneByOne) << held << " + " << added;
    }
  }
}

TEST_F(ResultListTest, A_text_that_ends_in_a_line_break_adds_an_empty_last_line) {
  list.AddLinesToList(L"a\r\n");
  EXPECT_EQ(list.Lines(), (Lines{L"a", L""}));
}

TEST_F(ResultListTest, An_empty_text_adds_one_empty_line) {
  list.AddLinesToList(L"");
  EXPECT_EQ(list.Lines(), Lines{L""});
}

TEST_F(ResultListTest, A_lone_carriage_return_or_line_feed_does_not_break_a_line) {
  list.AddLinesToList(L"a\rb\nc\r\nd");
  EXPECT_EQ(list.Lines(), (Lines{L"a\rb\nc", L"d"}));
}

TEST_F(ResultListTest, Every_copied_line_is_followed_by_a_line_break) {
  EXPECT_EQ(list.AllLines(), L"");
  list.AddBatch({L"a", L"b"});
  EXPECT_EQ(list.AllLines(), L"a\r\nb\r\n");
}

TEST_F(ResultListTest, A_pasted_text_replaces_the_list_line_by_line) {
  list.AddToList(L"old");
  list.ShowPasted(L"x\r\ny");
  EXPECT_EQ(list.Lines(), (Lines{L"x", L"y"}));
}

TEST_F(ResultListTest, A_pasted_text_that_ends_in_a_line_break_has_an_empty_last_line) {
  list.ShowPasted(L"x\r\ny\r\n");
  EXPECT_EQ(list.Lines(), (Lines{L"x", L"y", L""}));
}

TEST_F(ResultListTest, Pasting_drops_only_one_line_feed) {
  list.ShowPasted(L"x\r\n\ny");
  EXPECT_EQ(list.Lines(), (Lines{L"x", L"\ny"}));
}

TEST_F(ResultListTest, The_number_of_pasted_lines_is_not_limited) {
  std::wstring text;
  for (int i = 0; i < 3000; ++i) text += L"x\r\n";
  list.ShowPasted(text);
  EXPECT_EQ(list.Lines().size(), 3001U);
}

}  // namespace
}  // namespace tarvik::report
