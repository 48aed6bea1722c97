// Measures the sort of the FTP listing, whose result must equal that of std::sort.

#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>
#include <random>

#include "ftp/directory_listing.h"
#include "ftp/str_sort.h"
#include "lab/helpers/speed_probe/speed_probe_win32.h"
#include "platform/system.h"
#include "platform/text.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::wstring>;

/// Sorts with std::sort and the same keys.
Lines StandardSorted(Lines lines, System& system) {
  std::vector<std::pair<std::string, size_t>> keyed;
  keyed.reserve(lines.size());
  for (size_t i = 0; i < lines.size(); ++i) keyed.emplace_back(system.SortKey(lines[i]), i);
  std::sort(keyed.begin(), keyed.end());
  Lines sorted;
  sorted.reserve(lines.size());
  for (const auto& [key, line] : keyed) sorted.push_back(std::move(lines[line]));
  return sorted;
}

/// The worst order for the product's quicksort. Lets it sort numbers whose values are decided only when it
/// compares them, so that every pivot turns out to be the smallest number left.
std::vector<int32_t> WorstOrder(int32_t count) {
  std::vector<int32_t> values(static_cast<size_t>(count), count);
  std::vector<int32_t> places(static_cast<size_t>(count));
  std::iota(places.begin(), places.end(), 0);
  int32_t next = 0;
  int32_t candidate = 0;
  StrSort(places, 0, count - 1, [&](int32_t a, int32_t b) {
    auto& left = values[static_cast<size_t>(a)];
    auto& right = values[static_cast<size_t>(b)];
    if (left == count && right == count) (a == candidate ? left : right) = next++;
    if (left == count)
      candidate = a;
    else if (right == count)
      candidate = b;
    return left < right;
  });
  return values;
}

std::wstring Name(int32_t number) { return L"O" + ZeroPadded(number, 8) + L".NC"; }

}  // namespace

void MeasureSort(const Words& words) {
  const int32_t count = ParseInt32(words.at(0)).value_or(0);
  const auto system = MakeSystem();
  std::vector<int32_t> numbers(static_cast<size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 0);
  const auto report = [&](const std::string& name, const std::vector<int32_t>& from) {
    Lines lines;
    for (const int32_t number : from) lines.push_back(Name(number));
    Lines own, bare;
    Report("bare-" + name, Milliseconds([&] { bare = StandardSorted(lines, *system); }));
    Report("own-" + name, Milliseconds([&] { own = Sorted(lines, *system); }));
    if (own != bare) throw std::runtime_error("the two sorts differ");
  };
  report("sorted", numbers);
  std::reverse(numbers.begin(), numbers.end());
  report("reversed", numbers);
  std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
  report("random", numbers);
  report("hostile", WorstOrder(count));
  report("alike", std::vector<int32_t>(static_cast<size_t>(count), 7));
}

}  // namespace tarvik::lab
