#pragma once

#include <cstdint>
#include <iterator>

namespace tarvik::lab {

/// The item that a random number selects.
template <typename Items>
const auto& Pick(const Items& items, uint32_t draw) {
  return items[draw % std::size(items)];
}

/// What the monkey puts into fields for numbers: valid, out of range, and not a number.
inline constexpr const char* kNumberTexts[] = {"1", "2",  "3", "0",           "5",   "60",
                                               "",  "-1", "x", "99999999999", "8193"};

}  // namespace tarvik::lab
