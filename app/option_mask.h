#pragma once

#include <cstdint>

namespace tarvik {

/// The bits of the option mask; they come from the edition and the command line.
enum OptionBit : uint32_t {
  kTopmost = 1,           ///< the window stays above all others
  kLibraryTest = 2,       ///< the ladder includes the library test; the access code is pre-filled
  kK7ApiTest = 4,         ///< the ladder includes the K7 API test
  kFtpTest = 8,           ///< the ladder includes the FTP test; the FTP fields are pre-filled
  kPasteMode = 0x10,      ///< a double click on the result list pastes instead of copying
  kFamilyMode = 0x20,     ///< the K7 pages are off and the K7 test is left out
  kClearPasswords = 0x40  ///< password boxes show their text in clear
};

/// A 32-bit set of bits that only ever grows.
class OptionMask {
 public:
  /// True when every one of the bits is set.
  bool Test(uint32_t bits) const { return (mask_ & bits) == bits; }

  /// Adds the bits.
  void Set(uint32_t bits) { mask_ |= bits; }

 private:
  uint32_t mask_ = 0;
};

}  // namespace tarvik
