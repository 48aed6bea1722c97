#include "ui/layout.h"

#include <gtest/gtest.h>

#include "ui/memory/memory_controls.h"

namespace tarvik::ui {
namespace {

/// Buttons with captions of one, two and three letters.
class LayoutTest : public testing::Test {
 protected:
  LayoutTest() {
    one.SetCaption(L"a");
    two.SetCaption(L"bb");
    three.SetCaption(L"ccc");
  }

  static constexpr int kHeight = 23;  // of every memory control
  static constexpr int kOneWidth = 19;
  static constexpr int kTwoWidth = 26;
  static constexpr int kThreeWidth = 33;

  MemoryFocus focus;
  MemoryButton one{focus};
  MemoryButton two{focus};
  MemoryButton three{focus};
};

// Fit

TEST_F(LayoutTest, Fit_measures_the_current_caption) {
  EXPECT_EQ(Fit(three, {})->Measure(), (Size{kThreeWidth, kHeight}));
  EXPECT_EQ(Fit(three, {L"a", L"bb"})->Measure(), (Size{kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, Fit_measures_the_widest_of_the_other_captions) {
  EXPECT_EQ(Fit(one, {L"a", L"ccc", L"bb"})->Measure(), (Size{kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, Fit_places_its_control_in_the_rectangle) {
  Fit(one, {})->Place({1, 2, 300, 40});
  EXPECT_EQ(one.Bounds(), (Rect{1, 2, 300, 40}));
}

// Row

TEST_F(LayoutTest, A_row_measures_its_boxes_and_the_gaps_between_them) {
  EXPECT_EQ(Row(5, Boxed(Fit(one, {}), Fit(two, {}), Fit(three, {})))->Measure(),
            (Size{kOneWidth + 5 + kTwoWidth + 5 + kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, A_row_is_as_tall_as_its_tallest_box) {
  EXPECT_EQ(Row(5, Boxed(Fit(one, {}), Column(4, Boxed(Fit(two, {}), Fit(three, {})))))->Measure().height,
            2 * kHeight + 4);
}

TEST_F(LayoutTest, A_row_places_its_boxes_from_left_to_right_in_their_measured_widths) {
  Row(5, Boxed(Fit(one, {}), Fit(two, {}), Fit(three, {})))->Place({100, 50, 400, kHeight});
  EXPECT_EQ(one.Bounds(), (Rect{100, 50, kOneWidth, kHeight}));
  EXPECT_EQ(two.Bounds(), (Rect{100 + kOneWidth + 5, 50, kTwoWidth, kHeight}));
  EXPECT_EQ(three.Bounds(), (Rect{100 + kOneWidth + 5 + kTwoWidth + 5, 50, kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, A_row_centres_each_box_on_its_height) {
  Row(5, Boxed(Fit(one, {})))->Place({0, 50, 400, kHeight + 20});
  EXPECT_EQ(one.Bounds(), (Rect{0, 60, kOneWidth, kHeight}));
}

// Stretch and filler

TEST_F(LayoutTest, Stretch_measures_its_sample_and_not_its_caption) {
  EXPECT_EQ(Stretch(three, L"a")->Measure(), (Size{kOneWidth, kHeight}));
}

TEST_F(LayoutTest, Stretch_gets_the_spare_width_of_its_row) {
  Row(5, Boxed(Fit(one, {}), Stretch(two, L"a"), Fit(three, {})))->Place({0, 0, 200, kHeight});
  const int stretched = 200 - kOneWidth - kThreeWidth - 2 * 5;
  EXPECT_EQ(one.Bounds().width, kOneWidth);
  EXPECT_EQ(two.Bounds(), (Rect{kOneWidth + 5, 0, stretched, kHeight}));
  EXPECT_EQ(three.Bounds(), (Rect{200 - kThreeWidth, 0, kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, Stretch_keeps_at_least_its_measured_width) {
  Row(5, Boxed(Stretch(one, L"ccc"), Fit(two, {})))->Place({0, 0, kThreeWidth + 5 + kTwoWidth, kHeight});
  EXPECT_EQ(one.Bounds().width, kThreeWidth);
}

TEST_F(LayoutTest, Boxes_that_stretch_share_the_spare_width_to_the_last_pixel) {
  Row(5, Boxed(Stretch(one, L"a"), Stretch(two, L"bb")))
      ->Place({0, 0, kOneWidth + 5 + kTwoWidth + 11, kHeight});
  EXPECT_EQ(one.Bounds().width, kOneWidth + 5);
  EXPECT_EQ(two.Bounds().width, kTwoWidth + 6);
}

TEST_F(LayoutTest, A_filler_needs_no_space) { EXPECT_EQ(Filler()->Measure(), Size{}); }

TEST_F(LayoutTest, A_filler_moves_the_boxes_after_it_to_the_end_of_the_row) {
  Row(5, Boxed(Fit(one, {}), Filler(), Fit(two, {})))->Place({10, 0, 200, kHeight});
  EXPECT_EQ(one.Bounds().x, 10);
  EXPECT_EQ(two.Bounds(), (Rect{210 - kTwoWidth, 0, kTwoWidth, kHeight}));
}

// Column

TEST_F(LayoutTest, A_column_measures_its_boxes_and_the_gaps_between_them) {
  EXPECT_EQ(Column(4, Boxed(Fit(one, {}), Fit(two, {}), Fit(one, {})))->Measure().height,
            kHeight + 4 + kHeight + 4 + kHeight);
}

TEST_F(LayoutTest, A_column_is_as_wide_as_its_widest_box) {
  EXPECT_EQ(Column(4, Boxed(Fit(one, {}), Fit(three, {}), Fit(two, {})))->Measure().width, kThreeWidth);
}

TEST_F(LayoutTest, A_column_places_its_boxes_from_top_to_bottom_over_its_whole_width) {
  Column(4, Boxed(Fit(one, {}), Fit(two, {})))->Place({10, 20, 300, 200});
  EXPECT_EQ(one.Bounds(), (Rect{10, 20, 300, kHeight}));
  EXPECT_EQ(two.Bounds(), (Rect{10, 20 + kHeight + 4, 300, kHeight}));
}

TEST_F(LayoutTest, A_row_in_a_column_fills_the_width_of_the_column) {
  Column(4, Boxed(Row(5, Boxed(Filler(), Fit(one, {}))), Fit(two, {})))->Place({0, 0, 300, 200});
  EXPECT_EQ(one.Bounds().x, 300 - kOneWidth);
}

// Grid

TEST_F(LayoutTest, A_grid_measures_the_widest_box_of_each_column_and_the_tallest_of_each_row) {
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Fit(one, {}), Fit(three, {})));
  rows.push_back(Boxed(Column(4, Boxed(Fit(two, {}), Fit(two, {}))), Fit(one, {})));
  EXPECT_EQ(Grid(6, 8, std::move(rows))->Measure(),
            (Size{kTwoWidth + 6 + kThreeWidth, kHeight + 8 + 2 * kHeight + 4}));
}

TEST_F(LayoutTest, The_boxes_of_a_grid_column_are_aligned_on_the_left) {
  MemoryButton besideOne(focus);
  MemoryButton besideThree(focus);
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Fit(one, {}), Fit(besideOne, {L"a"})));
  rows.push_back(Boxed(Fit(three, {}), Fit(besideThree, {L"bb"})));
  Grid(6, 8, std::move(rows))->Place({10, 20, 300, 200});
  EXPECT_EQ(one.Bounds(), (Rect{10, 20, kOneWidth, kHeight}));
  EXPECT_EQ(besideOne.Bounds(), (Rect{10 + kThreeWidth + 6, 20, kOneWidth, kHeight}));
  EXPECT_EQ(three.Bounds(), (Rect{10, 20 + kHeight + 8, kThreeWidth, kHeight}));
  EXPECT_EQ(besideThree.Bounds(), (Rect{10 + kThreeWidth + 6, 20 + kHeight + 8, kTwoWidth, kHeight}));
}

TEST_F(LayoutTest, A_grid_centres_each_box_on_the_height_of_its_row) {
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Fit(one, {}), Column(4, Boxed(Fit(two, {}), Fit(three, {})))));
  Grid(6, 8, std::move(rows))->Place({0, 0, 300, 200});
  EXPECT_EQ(one.Bounds().y, (kHeight + 4) / 2);
}

TEST_F(LayoutTest, Stretch_gets_the_width_of_its_grid_column) {
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Stretch(one, L"a")));
  rows.push_back(Boxed(Fit(three, {})));
  Grid(6, 8, std::move(rows))->Place({0, 0, 300, 200});
  EXPECT_EQ(one.Bounds().width, kThreeWidth);
}

TEST_F(LayoutTest, A_null_box_leaves_its_grid_cell_empty) {
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Fit(two, {}), Fit(one, {})));
  rows.push_back(Boxed(BoxPtr(), Fit(three, {})));
  const BoxPtr grid = Grid(6, 8, std::move(rows));
  EXPECT_EQ(grid->Measure(), (Size{kTwoWidth + 6 + kThreeWidth, kHeight + 8 + kHeight}));
  grid->Place({0, 0, 300, 200});
  EXPECT_EQ(three.Bounds(), (Rect{kTwoWidth + 6, kHeight + 8, kThreeWidth, kHeight}));
}

TEST_F(LayoutTest, Without_boxes_no_space_is_needed) {
  EXPECT_EQ(Row(5, {})->Measure(), Size{});
  EXPECT_EQ(Column(5, {})->Measure(), Size{});
  EXPECT_EQ(Grid(5, 5, {})->Measure(), Size{});
}

}  // namespace
}  // namespace tarvik::ui
