#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/control.h"

// A window's layout as a tree of boxes. Each box measures its contents and then places them, so one layout
// serves all languages and scalings. Lengths are in pixels.

namespace tarvik::ui {

class Box {
 public:
  virtual ~Box() = default;
  /// The minimum size at which nothing in the box is cut off.
  virtual Size Measure() const = 0;
  /// Places the box's controls inside the rectangle, which is at least as large as measured.
  virtual void Place(const Rect& place) = 0;
};

using BoxPtr = std::unique_ptr<Box>;

/// One control, wide enough for its current caption and for each of `captions`.
BoxPtr Fit(Control& control, const std::vector<std::wstring>& captions);

/// One control, at least wide enough for `sample`, that fills the spare width of its row or grid column.
BoxPtr Stretch(Control& control, const std::wstring& sample);

/// Empty space that fills the spare width of its row.
BoxPtr Filler();

/// Boxes side by side, each centred on the row's height.
BoxPtr Row(int gap, std::vector<BoxPtr> boxes);

/// Boxes one below the other, each as wide as the column.
BoxPtr Column(int gap, std::vector<BoxPtr> boxes);

/// Rows of boxes whose columns are aligned on the left. A null box leaves its cell empty.
BoxPtr Grid(int gapAcross, int gapDown, std::vector<std::vector<BoxPtr>> rows);

/// Makes the vector that Row and Column expect; Grid expects one per row.
template <typename... Boxes>
std::vector<BoxPtr> Boxed(Boxes... boxes) {
  std::vector<BoxPtr> list;
  (list.push_back(std::move(boxes)), ...);
  return list;
}

}  // namespace tarvik::ui
