#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace tarvik {

/// Sorts lines[lo..hi] in place, ascending: a quicksort with the middle element as pivot. It is not stable,
/// but the same input always gives the same order. `less(a, b)`: a sorts before b. Subtracts its comparisons
/// from `comparisonsLeft`; when they run out, returns false and leaves the lines in any order. Equal lines,
/// and some orders of different ones, need a number of comparisons that grows with the square of their count.
template <typename Line, typename Less>
[[nodiscard]] bool StrSort(std::vector<Line>& lines, int32_t lo, int32_t hi, Less less,
                           int64_t& comparisonsLeft) {
  while (lo < hi) {
    if (hi - lo > comparisonsLeft) return false;
    comparisonsLeft -= hi - lo;
    const auto at = [&lines](int32_t index) -> Line& { return lines[static_cast<size_t>(index)]; };
    const int32_t mid = lo + (hi - lo) / 2;
    const Line pivot = std::exchange(at(mid), at(lo));
    int32_t last = lo;
    for (int32_t i = lo + 1; i <= hi; ++i)
      if (less(at(i), pivot)) std::swap(at(++last), at(i));
    at(lo) = at(last);
    at(last) = pivot;
    // The two sides are independent. Recursing only into the smaller one limits the depth to log2 of the
    // count, whatever the order.
    if (last - lo < hi - last) {
      if (!StrSort(lines, lo, last - 1, less, comparisonsLeft)) return false;
      lo = last + 1;
    } else {
      if (!StrSort(lines, last + 1, hi, less, comparisonsLeft)) return false;
      hi = last - 1;
    }
  }
  return true;
}

/// The same with unlimited comparisons.
template <typename Line, typename Less>
void StrSort(std::vector<Line>& lines, int32_t lo, int32_t hi, Less less) {
  int64_t comparisonsLeft = std::numeric_limits<int64_t>::max();
  static_cast<void>(StrSort(lines, lo, hi, less, comparisonsLeft));
}

}  // namespace tarvik
