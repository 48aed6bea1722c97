#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace tarvik::bench {

/// Appends the number, least significant byte first.
template <std::integral Number>
void AppendNumber(std::string& bytes, Number number) {
  const auto value = static_cast<std::make_unsigned_t<Number>>(number);
  for (size_t i = 0; i < sizeof value; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

/// Reads numbers and texts from the front of received bytes. Reading beyond the end yields 0 or an empty text
/// and makes ExactlyRead false.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  template <std::integral Number>
  Number Take() {
    const std::string_view piece = TakeBytes(sizeof(Number));
    std::make_unsigned_t<Number> value = 0;
    for (size_t i = 0; i < piece.size(); ++i) {
      const auto byte = static_cast<std::make_unsigned_t<Number>>(static_cast<unsigned char>(piece[i]));
      value = static_cast<std::make_unsigned_t<Number>>(value | (byte << (8 * i)));
    }
    return static_cast<Number>(value);
  }

  std::string_view TakeBytes(size_t count) {
    if (count > bytes_.size()) {
      complete_ = false;
      bytes_ = {};
      return {};
    }
    const std::string_view piece = bytes_.substr(0, count);
    bytes_.remove_prefix(count);
    return piece;
  }

  std::string_view TakeRest() { return TakeBytes(bytes_.size()); }

  /// True when no read went beyond the end and no byte is left.
  bool ExactlyRead() const { return complete_ && bytes_.empty(); }

 private:
  std::string_view bytes_;
  bool complete_ = true;
};

}  // namespace tarvik::bench
