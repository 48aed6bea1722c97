#include "ui/placement.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <tuple>

namespace tarvik::ui {
namespace {

int RightOf(const Rect& rect) { return rect.x + rect.width; }
int BottomOf(const Rect& rect) { return rect.y + rect.height; }

/// In square pixels.
int64_t OverlapOf(const Rect& a, const Rect& b) {
  const int width = std::min(RightOf(a), RightOf(b)) - std::max(a.x, b.x);
  const int height = std::min(BottomOf(a), BottomOf(b)) - std::max(a.y, b.y);
  return width > 0 && height > 0 ? int64_t{width} * height : 0;
}

/// Inside the work area; smaller if need be.
Rect ClampedTo(const Rect& workArea, Rect place) {
  place.width = std::min(place.width, workArea.width);
  place.height = std::min(place.height, workArea.height);
  place.x = std::clamp(place.x, workArea.x, RightOf(workArea) - place.width);
  place.y = std::clamp(place.y, workArea.y, BottomOf(workArea) - place.height);
  return place;
}

}  // namespace

Rect BesideWindow(Size size, int minimumWidth, const Rect& window, const Rect& keep, const Rect& workArea) {
  const int narrowest = std::min(minimumWidth, size.width);
  const int right = std::clamp(RightOf(workArea) - RightOf(window), narrowest, size.width);
  const int left = std::clamp(window.x - workArea.x, narrowest, size.width);
  const Rect places[] = {
      ClampedTo(workArea, {RightOf(window), window.y, right, size.height}),
      ClampedTo(workArea, {window.x - left, window.y, left, size.height}),
      ClampedTo(workArea, {window.x, BottomOf(window), size.width, size.height}),
      ClampedTo(workArea, {window.x, window.y - size.height, size.width, size.height}),
  };
  return *std::min_element(std::begin(places), std::end(places), [&](const Rect& a, const Rect& b) {
    return std::tuple(OverlapOf(a, keep), OverlapOf(a, window)) <
           std::tuple(OverlapOf(b, keep), OverlapOf(b, window));
  });
}

}  // namespace tarvik::ui
