#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarvik {

/// Sorts lines[lo..hi] in place, ascending: a quicksort with the middle element as pivot. Equal elements
/// are not moved, so the order is not stable but always the same for the same input. `less` says whether
/// its first argument comes before its second.
template <typename Line, typename Less>
void StrSort(std::vector<Line>& lines, int32_t lo, int32_t hi, Less less) {
  while (lo < hi) {
    const auto at = [&lines](int32_t index) -> Line& { return lines[static_cast<size_t>(index)]; };
    const int32_t mid = lo + (hi - lo) / 2;
    const Line pivot = std::exchange(at(mid), at(lo));
    int32_t last = lo;
    for (int32_t i = lo + 1; i <= hi; ++i)
      if (less(at(i), pivot)) std::swap(at(++last), at(i));
    at(lo) = at(last);
    at(last) = pivot;
    // The two sides are independent of each other; recursing into the smaller one only keeps the stack
    // shallow for a list of any order.
    if (last - lo < hi - last) {
      StrSort(lines, lo, last - 1, less);
      lo = last + 1;
    } else {
      StrSort(lines, last + 1, hi, less);
      hi = last - 1;
    }
  }
}

}  // namespace tarvik
