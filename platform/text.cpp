#include "platform/text.h"

#include <charconv>
#include <limits>

namespace tarvik {
namespace {

template <typename Number>
std::optional<Number> ParseWhole(std::wstring_view text) {
  const std::wstring_view trimmed = TrimSpaces(text);
  std::wstring_view digits = trimmed;
  const bool negative = !digits.empty() && digits.front() == L'-';
  if (!digits.empty() && (negative || digits.front() == L'+')) digits.remove_prefix(1);
  if (digits.empty()) return std::nullopt;
  constexpr int64_t kTooLarge = int64_t{std::numeric_limits<Number>::max()} + 2;
  int64_t value = 0;
  for (const wchar_t digit : digits) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    // Saturates out of range, so that no number of digits overflows it.
    value = value >= kTooLarge ? kTooLarge : value * 10 + (digit - L'0');
  }
  if (negative) value = -value;
  if (value < std::numeric_limits<Number>::min() || value > std::numeric_limits<Number>::max())
    return std::nullopt;
  return static_cast<Number>(value);
}

}  // namespace

std::wstring WidenAscii(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (const char byte : text)
    wide.push_back(static_cast<unsigned char>(byte) < 0x80 ? static_cast<wchar_t>(byte) : L'?');
  return wide;
}

std::string NarrowAscii(std::wstring_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (const wchar_t character : text)
    narrow.push_back(character > 0 && character < 0x80 ? static_cast<char>(character) : '?');
  return narrow;
}

std::wstring Decimal(int64_t number) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  return WidenAscii({digits, static_cast<size_t>(end - digits)});
}

std::wstring ZeroPadded(int64_t number, size_t digits) {
  std::wstring text = Decimal(number < 0 ? -number : number);
  if (text.size() < digits) text.insert(0, digits - text.size(), L'0');
  return number < 0 ? L"-" + text : text;
}

std::wstring Hexadecimal(uint32_t number) {
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
  return UpperCaseAscii(WidenAscii({digits, static_cast<size_t>(end - digits)}));
}

std::wstring_view TrimSpaces(std::wstring_view text) {
  const size_t first = text.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring UpperCaseAscii(std::wstring_view text) {
  std::wstring upper(text);
  for (wchar_t& character : upper)
    if (character >= L'a' && character <= L'z') character = static_cast<wchar_t>(character - L'a' + L'A');
  return upper;
}

std::optional<int32_t> ParseInt32(std::wstring_view text) { return ParseWhole<int32_t>(text); }

std::optional<int16_t> ParseInt16(std::wstring_view text) { return ParseWhole<int16_t>(text); }

std::vector<std::wstring> Split(std::wstring_view text, std::wstring_view separator) {
  std::vector<std::wstring> pieces;
  for (size_t at; (at = text.find(separator)) != std::wstring_view::npos;
       text.remove_prefix(at + separator.size()))
    pieces.emplace_back(text.substr(0, at));
  pieces.emplace_back(text);
  return pieces;
}

}  // namespace tarvik
