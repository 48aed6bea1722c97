#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// The number in decimal: a leading minus when negative, nothing else.
std::wstring Decimal(int64_t number);

/// The number in decimal, filled with zeros in front to at least `digits` digits; never cut.
std::wstring ZeroPadded(int64_t number, size_t digits);

/// The number in hexadecimal: upper case, no prefix, no leading zeros.
std::wstring Hexadecimal(uint32_t number);

/// The text without the blanks (0x20 only) at both ends.
std::wstring_view TrimBlanks(std::wstring_view text);

/// The text with ASCII letters in upper case; every other character as it is.
std::wstring UpperCaseAscii(std::wstring_view text);

/// The text as a signed whole number of 32 bits: blanks around it and one sign are allowed. Nothing when
/// it is no whole number or does not fit.
std::optional<int32_t> ParseInt32(std::wstring_view text);

/// The same for 16 bits.
std::optional<int16_t> ParseInt16(std::wstring_view text);

/// The pieces between the separators, empty ones included; an empty text is one empty piece.
std::vector<std::wstring> Split(std::wstring_view text, std::wstring_view separator);

/// ASCII bytes as wide text, and back; a character beyond 127 becomes "?". For texts that are ASCII by
/// definition: dotted addresses, numbers, ids.
std::wstring WidenAscii(std::string_view text);
std::string NarrowAscii(std::wstring_view text);

}  // namespace tarvik
