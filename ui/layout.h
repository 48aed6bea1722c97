#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/control.h"

// A window's layout as a tree of boxes. Every box measures what it needs and places what it holds, so that
// languages and scalings come out right by themselves.

namespace tarvik::ui {

class Box {
 public:
  virtual ~Box() = default;
  /// The least size at which nothing in the box is cut.
  virtual Size Measure() const = 0;
  /// Puts the box's controls into the rectangle, which is at least as large as measured.
  virtual void Place(const Rect& place) = 0;
};

using BoxPtr = std::unique_ptr<Box>;

/// One control, wide enough for its present caption and for every one of `captions`.
BoxPtr Fit(Control& control, const std::vector<std::wstring>& captions);

/// One control that takes all the width that its row has left, at least as much as `sample` needs.
BoxPtr Stretch(Control& control, const std::wstring& sample);

/// Empty room that takes all the width that its row has left.
BoxPtr Filler();

/// Boxes side by side, each centred on the row's height.
BoxPtr Row(int gap, std::vector<BoxPtr> boxes);

/// Boxes one below the other, each as wide as the column.
BoxPtr Column(int gap, std::vector<BoxPtr> boxes);

/// Rows of equally many boxes; the boxes of one column all begin at the same place. A null box stays empty.
BoxPtr Grid(int gapAcross, int gapDown, std::vector<std::vector<BoxPtr>> rows);

/// The boxes as the vector that Row, Column and Grid take.
template <typename... Boxes>
std::vector<BoxPtr> Boxed(Boxes... boxes) {
  std::vector<BoxPtr> list;
  (list.push_back(std::move(boxes)), ...);
  return list;
}

}  // namespace tarvik::ui
