#pragma once

#include <cstdint>

namespace tarvik {

/// The 16-bit Boolean of library records, library calls and the window's flags. True is stored as -1; every
/// nonzero value reads as true.
class Boolean16 {
 public:
  constexpr Boolean16() = default;
  constexpr Boolean16(bool value) : value_(value ? int16_t{-1} : int16_t{0}) {}
  constexpr operator bool() const { return value_ != 0; }

 private:
  int16_t value_ = 0;
};
static_assert(sizeof(Boolean16) == 2);

}  // namespace tarvik
