#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "platform/fixed_buffer.h"
#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

namespace {

/// The number, however large, parsed in the simplest way; nothing when the text is not a number.
std::optional<long double> ParseAnySize(const std::wstring& text) {
  size_t at = 0;
  while (at < text.size() && text[at] == L' ') ++at;
  size_t end = text.size();
  while (end > at && text[end - 1] == L' ') --end;
  const bool negative = at < end && text[at] == L'-';
  if (at < end && (text[at] == L'-' || text[at] == L'+')) ++at;
  if (at == end) return std::nullopt;
  long double number = 0;
  for (; at < end; ++at) {
    if (text[at] < L'0' || text[at] > L'9') return std::nullopt;
    number = number * 10 + static_cast<long double>(text[at] - L'0');
  }
  return negative ? -number : number;
}

template <typename Number>
void CompareNumber(std::optional<Number> parsed, std::optional<long double> plain) {
  const bool fits =
      plain && *plain >= std::numeric_limits<Number>::min() && *plain <= std::numeric_limits<Number>::max();
  Require(parsed.has_value() == fits);
  if (fits) Require(static_cast<long double>(*parsed) == *plain);
}

}  // namespace

/// Numbers and parts of any text. First byte: the separator.
TARVIK_FUZZER(platform_text) {
  if (size == 0) return;
  const std::wstring text(data + 1, data + size);
  CompareNumber(tarvik::ParseInt32(text), ParseAnySize(text));
  CompareNumber(tarvik::ParseInt16(text), ParseAnySize(text));

  const std::wstring separator(data[0] % 2 == 0 ? 1 : 2, static_cast<wchar_t>(data[0]));
  std::wstring joined;
  for (const std::wstring& piece : tarvik::Split(text, separator)) {
    Require(piece.find(separator) == std::wstring::npos);
    joined += piece + separator;
  }
  Require(joined == text + separator);

  const std::wstring_view trimmed = tarvik::TrimSpaces(text);
  Require(!trimmed.starts_with(L' ') && !trimmed.ends_with(L' '));
  Require(text.find(trimmed) != std::wstring::npos);
  Require(tarvik::TrimNull(std::wstring_view(text)).find(L'\0') == std::wstring_view::npos);
  Require(tarvik::WidenAscii(tarvik::NarrowAscii(text)).size() == text.size());
  Require(tarvik::UpperCaseAscii(text).size() == text.size());

  int64_t number = 0;
  std::memcpy(&number, data, size < sizeof number ? size : sizeof number);
  Require(std::to_wstring(number) == tarvik::Decimal(number));
  const auto narrow = static_cast<int32_t>(number);
  Require(tarvik::ParseInt32(tarvik::ZeroPadded(narrow, 20)) == narrow);
  Require(std::stoul(tarvik::Hexadecimal(static_cast<uint32_t>(number)), nullptr, 16) ==
          static_cast<uint32_t>(number));
}
