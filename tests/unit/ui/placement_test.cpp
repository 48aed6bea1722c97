#include "ui/placement.h"

#include <gtest/gtest.h>

namespace tarvik::ui {
namespace {

constexpr Size kSize{500, 500};
constexpr int kMinimumWidth = 300;

/// A main window of 560 x 520 pixels, with its list in the lower half.
Rect Beside(int x, int y, const Rect& workArea) {
  return BesideWindow(kSize, kMinimumWidth, {x, y, 560, 520}, {x + 10, y + 220, 540, 260}, workArea);
}

TEST(PlacementTest, A_window_goes_to_the_right_of_the_other_one) {
  EXPECT_EQ(Beside(100, 50, {0, 0, 1920, 1040}), (Rect{660, 50, 500, 500}));
}

TEST(PlacementTest, Without_room_on_the_right_it_goes_to_the_left) {
  EXPECT_EQ(Beside(1300, 50, {0, 0, 1920, 1040}), (Rect{800, 50, 500, 500}));
}

TEST(PlacementTest, It_becomes_narrower_to_fit_but_not_narrower_than_its_minimum) {
  EXPECT_EQ(Beside(50, 50, {0, 0, 1024, 728}), (Rect{610, 50, 414, 500}));
  EXPECT_EQ(Beside(230, 50, {0, 0, 1024, 728}).width, 300);
}

TEST(PlacementTest, Without_room_on_any_side_it_covers_as_little_of_the_list_as_possible) {
  const Rect place = Beside(20, 200, {0, 0, 600, 728});
  EXPECT_EQ(place, (Rect{20, 0, 500, 500})) << "above: the list begins at 420";
}

TEST(PlacementTest, It_is_inside_the_work_area_and_not_larger) {
  for (const Rect& area : {Rect{0, 0, 1024, 728}, Rect{-1280, 40, 1280, 984}, Rect{0, 0, 400, 300}})
    for (int x = area.x - 100; x < area.x + area.width; x += 60)
      for (int y = area.y; y < area.y + area.height; y += 60) {
        const Rect place = Beside(x, y, area);
        EXPECT_GE(place.x, area.x);
        EXPECT_GE(place.y, area.y);
        EXPECT_LE(place.x + place.width, area.x + area.width);
        EXPECT_LE(place.y + place.height, area.y + area.height);
      }
}

}  // namespace
}  // namespace tarvik::ui
