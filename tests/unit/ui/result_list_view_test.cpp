#include "ui/result_list_view.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "ui/memory/memory_controls.h"

namespace tarvik::ui {
namespace {

using Lines = std::vector<std::wstring>;

class ResultListViewTest : public testing::Test {
 protected:
  MemoryFocus focus;
  MemoryListBox box{focus};
  ResultListView view{box};
  report::ResultList list{view};
};

TEST_F(ResultListViewTest, The_newest_line_is_selected) {
  list.AddToList(L"one");
  list.AddToList(L"two");
  EXPECT_EQ(box.lines, (Lines{L"one", L"two"}));
  EXPECT_EQ(box.SelectedIndex(), 1);
  list.AddLinesToList(L"three\r\nfour");
  EXPECT_EQ(box.lines, (Lines{L"one", L"two", L"three", L"four"}));
  EXPECT_EQ(box.SelectedIndex(), 3);
}

TEST_F(ResultListViewTest, A_list_that_starts_over_replaces_the_lines_of_the_box) {
  for (int i = 0; i < 1001; ++i) list.AddToList(L"line");
  EXPECT_EQ(box.Count(), 1001);
  list.AddToList(L"new");
  EXPECT_EQ(box.lines, Lines{L"new"});
  EXPECT_EQ(box.SelectedIndex(), 0);
}

TEST_F(ResultListViewTest, A_cleared_list_is_an_empty_box) {
  list.AddToList(L"line");
  list.ClearList();
  EXPECT_TRUE(box.lines.empty());
}

TEST_F(ResultListViewTest, Pasted_lines_are_not_selected) {
  list.AddToList(L"old");
  list.ShowPasted(L"x\r\ny");
  EXPECT_EQ(box.lines, (Lines{L"x", L"y"}));
  EXPECT_EQ(box.SelectedIndex(), -1);
}

TEST_F(ResultListViewTest, A_batch_is_painted_once) {
  list.AddBatch(Lines(100, L"line"));
  EXPECT_EQ(box.painted, 0);
  EXPECT_TRUE(box.redrawing);
}

TEST_F(ResultListViewTest, A_line_that_the_box_rejected_does_not_keep_later_ones_out) {
  list.AddToList(L"one");
  box.refusing = true;
  EXPECT_THROW(list.AddToList(L"two"), RuntimeError);
  EXPECT_THROW(list.AddToList(L"three"), RuntimeError);
  box.refusing = false;
  EXPECT_TRUE(box.redrawing);
  list.AddToList(L"four");
  EXPECT_EQ(box.lines, (Lines{L"one", L"four"}));
  EXPECT_EQ(list.AllLines(), L"one\r\nfour\r\n");
}

TEST_F(ResultListViewTest, Lines_that_another_program_put_into_the_box_become_the_lists_own) {
  list.AddToList(L"own");
  box.lines.assign(1001, L"theirs");
  list.AddToList(L"new");
  EXPECT_EQ(box.lines, Lines{L"new"});
  box.lines.clear();
  EXPECT_EQ(list.AllLines(), L"");
  list.AddToList(L"after");
  EXPECT_EQ(box.lines, Lines{L"after"});
  EXPECT_EQ(list.AllLines(), L"after\r\n");
}

TEST_F(ResultListViewTest, The_horizontal_extent_is_a_multiple_of_the_client_width) {
  box.clientWidth = 321;
  SetListExtent(box, 3);
  EXPECT_EQ(box.horizontalExtent, 963);
}

}  // namespace
}  // namespace tarvik::ui
