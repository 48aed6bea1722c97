#pragma once

#include <cstdint>

namespace tarvik {

/// The bits of the option mask. The edition, the command line and cmdAllTest set them.
enum OptionBit : uint32_t {
  kTopmost = 1,           ///< the program's windows stay above all others
  kLibraryTest = 2,       ///< the ladder includes the library test; the access code is pre-filled
  kK7ApiTest = 4,         ///< the ladder includes the K7 API test
  kFtpTest = 8,           ///< the ladder includes the FTP test; the FTP fields are pre-filled
  kPasteMode = 0x10,      ///< a double click on the result list pastes instead of copying
  kFamilyMode = 0x20,     ///< the K7 pages are off; the ladder skips the K7 API test
  kClearPasswords = 0x40  ///< password boxes show their text
};

/// A set of option bits. Bits can be added but not removed.
class OptionMask {
 public:
  /// True when all of the bits are set.
  bool Test(uint32_t bits) const { return (mask_ & bits) == bits; }

  void Set(uint32_t bits) { mask_ |= bits; }

  uint32_t Bits() const { return mask_; }

 private:
  uint32_t mask_ = 0;
};

}  // namespace tarvik
