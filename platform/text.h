#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

/// The number in decimal, without separators or leading zeros.
std::wstring Decimal(int64_t number);

/// The number in decimal with leading zeros, to at least `digits` digits; the minus sign is not counted.
std::wstring ZeroPadded(int64_t number, size_t digits);

/// The number in upper-case hexadecimal, without prefix or leading zeros.
std::wstring Hexadecimal(uint32_t number);

/// The text without leading and trailing spaces. Tabs are kept.
std::wstring_view TrimSpaces(std::wstring_view text);

/// The text with ASCII letters in upper case and all other characters unchanged.
std::wstring UpperCaseAscii(std::wstring_view text);

/// Parses a decimal integer. Spaces around it and one leading sign are allowed. Nothing when the text is not
/// an integer or does not fit into 32 bits.
std::optional<int32_t> ParseInt32(std::wstring_view text);

/// The same with 16 bits.
std::optional<int16_t> ParseInt16(std::wstring_view text);

/// The pieces between the separators, including empty ones. An empty text is one empty piece.
std::vector<std::wstring> Split(std::wstring_view text, std::wstring_view separator);

/// Converts ASCII to wide text and back; any other character becomes "?". For texts that are ASCII by
/// definition, such as dotted addresses, numbers and ids.
std::wstring WidenAscii(std::string_view text);
std::string NarrowAscii(std::wstring_view text);

}  // namespace tarvik
