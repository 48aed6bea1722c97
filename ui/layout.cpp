#include "ui/layout.h"

#include <algorithm>
#include <utility>

// The box classes that the functions of layout.h create.

namespace tarvik::ui {
namespace {

/// A box that fills the spare width of its row. Several in one row share it.
class Greedy : public Box {};

bool IsGreedy(const BoxPtr& box) { return dynamic_cast<const Greedy*>(box.get()) != nullptr; }

int Centred(int start, int available, int needed) { return start + (available - needed) / 2; }

class FitBox final : public Box {
 public:
  // Measured once, because the enclosing boxes call Measure repeatedly.
  FitBox(Control& control, const std::vector<std::wstring>& captions)
      : control_(control), size_(control.SizeFor(control.Caption())) {
    for (const std::wstring& caption : captions) {
      const Size size = control.SizeFor(caption);
      size_ = {std::max(size_.width, size.width), std::max(size_.height, size.height)};
    }
  }
  Size Measure() const override { return size_; }
  void Place(const Rect& place) override { control_.SetBounds(place); }

 private:
  Control& control_;
  Size size_;
};

class StretchBox final : public Greedy {
 public:
  StretchBox(Control& control, const std::wstring& sample)
      : control_(control), size_(control.SizeFor(sample)) {}
  Size Measure() const override { return size_; }
  void Place(const Rect& place) override { control_.SetBounds(place); }

 private:
  Control& control_;
  Size size_;
};

class FillerBox final : public Greedy {
 public:
  Size Measure() const override { return {}; }
  void Place(const Rect&) override {}
};

class RowBox final : public Box {
 public:
  RowBox(int gap, std::vector<BoxPtr> boxes) : gap_(gap), boxes_(std::move(boxes)) {}
  Size Measure() const override {
    Size whole{gap_ * std::max(0, static_cast<int>(boxes_.size()) - 1), 0};
    for (const BoxPtr& box : boxes_) {
      const Size size = box->Measure();
      whole = {whole.width + size.width, std::max(whole.height, size.height)};
    }
    return whole;
  }
  void Place(const Rect& place) override {
    int spare = place.width - Measure().width;
    auto greedy = static_cast<int>(std::count_if(boxes_.begin(), boxes_.end(), IsGreedy));
    int x = place.x;
    for (const BoxPtr& box : boxes_) {
      Size size = box->Measure();
      if (greedy > 0 && IsGreedy(box)) {
        const int share = spare / greedy--;
        spare -= share;
        size.width += share;
      }
      box->Place({x, Centred(place.y, place.height, size.height), size.width, size.height});
      x += size.width + gap_;
    }
  }

 private:
  int gap_;
  std::vector<BoxPtr> boxes_;
};

class ColumnBox final : public Box {
 public:
  ColumnBox(int gap, std::vector<BoxPtr> boxes) : gap_(gap), boxes_(std::move(boxes)) {}
  Size Measure() const override {
    Size whole{0, gap_ * std::max(0, static_cast<int>(boxes_.size()) - 1)};
    for (const BoxPtr& box : boxes_) {
      const Size size = box->Measure();
      whole = {std::max(whole.width, size.width), whole.height + size.height};
    }
    return whole;
  }
  void Place(const Rect& place) override {
    int y = place.y;
    for (const BoxPtr& box : boxes_) {
      const int height = box->Measure().height;
      box->Place({place.x, y, place.width, height});
      y += height + gap_;
    }
  }

 private:
  int gap_;
  std::vector<BoxPtr> boxes_;
};

class GridBox final : public Box {
 public:
  GridBox(int gapAcross, int gapDown, std::vector<std::vector<BoxPtr>> rows)
      : gapAcross_(gapAcross), gapDown_(gapDown), rows_(std::move(rows)) {}
  Size Measure() const override {
    const std::vector<int> widths = ColumnWidths();
    Size whole{gapAcross_ * std::max(0, static_cast<int>(widths.size()) - 1),
               gapDown_ * std::max(0, static_cast<int>(rows_.size()) - 1)};
    for (const int width : widths) whole.width += width;
    for (const auto& row : rows_) whole.height += HeightOf(row);
    return whole;
  }
  void Place(const Rect& place) override {
    const std::vector<int> widths = ColumnWidths();
    int y = place.y;
    for (const auto& row : rows_) {
      const int height = HeightOf(row);
      int x = place.x;
      for (size_t column = 0; column < row.size(); ++column) {
        if (row[column] != nullptr) {
          const Size size = row[column]->Measure();
          const int width = IsGreedy(row[column]) ? widths[column] : size.width;
          row[column]->Place({x, Centred(y, height, size.height), width, size.height});
        }
        x += widths[column] + gapAcross_;
      }
      y += height + gapDown_;
    }
  }

 private:
  std::vector<int> ColumnWidths() const {
    std::vector<int> widths;
    for (const auto& row : rows_) {
      widths.resize(std::max(widths.size(), row.size()));
      for (size_t column = 0; column < row.size(); ++column)
        if (row[column] != nullptr) widths[column] = std::max(widths[column], row[column]->Measure().width);
    }
    return widths;
  }
  static int HeightOf(const std::vector<BoxPtr>& row) {
    int height = 0;
    for (const BoxPtr& box : row)
      if (box != nullptr) height = std::max(height, box->Measure().height);
    return height;
  }

  int gapAcross_;
  int gapDown_;
  std::vector<std::vector<BoxPtr>> rows_;
};

}  // namespace

BoxPtr Fit(Control& control, const std::vector<std::wstring>& captions) {
  return std::make_unique<FitBox>(control, captions);
}

BoxPtr Stretch(Control& control, const std::wstring& sample) {
  return std::make_unique<StretchBox>(control, sample);
}

BoxPtr Filler() { return std::make_unique<FillerBox>(); }

BoxPtr Row(int gap, std::vector<BoxPtr> boxes) { return std::make_unique<RowBox>(gap, std::move(boxes)); }

BoxPtr Column(int gap, std::vector<BoxPtr> boxes) {
  return std::make_unique<ColumnBox>(gap, std::move(boxes));
}

BoxPtr Grid(int gapAcross, int gapDown, std::vector<std::vector<BoxPtr>> rows) {
  return std::make_unique<GridBox>(gapAcross, gapDown, std::move(rows));
}

}  // namespace tarvik::ui
