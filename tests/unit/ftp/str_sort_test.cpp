#include "ftp/str_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <string>

namespace tarvik {
namespace {

using Words = std::vector<std::string>;

// The plain algorithm, recursing into both sides.
void PlainSort(Words& a, int lo, int hi) {
  if (lo >= hi) return;
  const auto at = [&a](int i) -> std::string& { return a[static_cast<size_t>(i)]; };
  const int mid = (lo + hi) / 2;
  const std::string pivot = at(mid);
  at(mid) = at(lo);
  int last = lo;
  for (int i = lo + 1; i <= hi; ++i)
    if (at(i)[0] < pivot[0]) std::swap(at(++last), at(i));
  at(lo) = at(last);
  at(last) = pivot;
  PlainSort(a, lo, last - 1);
  PlainSort(a, last + 1, hi);
}

const auto kByFirstLetter = [](const std::string& a, const std::string& b) { return a[0] < b[0]; };

TEST(StrSort, A_range_of_at_most_one_element_is_unchanged) {
  Words words{"b", "a"};
  StrSort(words, 1, 1, kByFirstLetter);
  StrSort(words, 1, 0, kByFirstLetter);
  EXPECT_EQ(words, (Words{"b", "a"}));
}

TEST(StrSort, Only_the_range_is_sorted) {
  Words words{"d", "c", "b", "a"};
  StrSort(words, 1, 2, kByFirstLetter);
  EXPECT_EQ(words, (Words{"d", "b", "c", "a"}));
}

TEST(StrSort, Equal_elements_have_the_order_of_the_plain_algorithm) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    Words words;
    const int count = static_cast<int>(random() % 40);
    for (int i = 0; i < count; ++i)
      words.push_back(std::string(1, static_cast<char>('a' + random() % 4)) + std::to_string(i));
    Words expected = words;
    PlainSort(expected, 0, count - 1);
    StrSort(words, 0, count - 1, kByFirstLetter);
    ASSERT_EQ(words, expected);
  }
}

TEST(StrSort, The_stack_stays_shallow_even_with_the_worst_pivots) {
  // Equal elements put everything on one side of each pivot: the depth would be the length.
  std::vector<int> numbers(3000, 5);
  // The address of a stack frame shows the depth of the recursion.
  const char* lowest = nullptr;
  const char* highest = nullptr;
  StrSort(numbers, 0, 2999, [&](int a, int b) {
    const char here = 0;
    if (lowest == nullptr || &here < lowest) lowest = &here;
    if (highest == nullptr || &here > highest) highest = &here;
    return a < b;
  });
  EXPECT_LT(highest - lowest, 64 * 1024);
  EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
}

TEST(StrSort, A_sort_that_gives_up_stays_within_its_comparisons_and_loses_nothing) {
  std::vector<int> numbers(3000, 5);
  numbers.back() = 4;
  int64_t made = 0;
  int64_t left = 100'000;
  EXPECT_FALSE(StrSort(
      numbers, 0, 2999,
      [&](int a, int b) {
        ++made;
        return a < b;
      },
      left));
  EXPECT_LE(made, 100'000);
  EXPECT_EQ(made, 100'000 - left);
  EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 4), 1);
  EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 5), 2999);
}

TEST(StrSort, Exactly_the_allowed_comparisons_suffice) {
  std::vector<int> numbers{3, 1, 2};
  int64_t left = 3;  // two for three elements, then one for the two that are left
  EXPECT_TRUE(StrSort(numbers, 0, 2, std::less<>(), left));
  EXPECT_EQ(numbers, (std::vector<int>{1, 2, 3}));
}

}  // namespace
}  // namespace tarvik
