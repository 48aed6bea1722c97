#include <cstring>
#include <limits>
#include <optional>
#include <string>

#include "platform/fixed_buffer.h"
#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Demand;

namespace {

/// The number as one would read it without any care for its size; nothing when it is none or absurdly long.
std::optional<long double> PlainlyRead(const std::wstring& text) {
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
  Demand(parsed.has_value() == fits);
  if (fits) Demand(static_cast<long double>(*parsed) == *plain);
}

}  // namespace

/// Numbers and pieces of any text: the first byte is the separator.
TARVIK_FUZZER(platform_text) {
  if (size == 0) return;
  const std::wstring text(data + 1, data + size);
  CompareNumber(tarvik::ParseInt32(text), PlainlyRead(text));
  CompareNumber(tarvik::ParseInt16(text), PlainlyRead(text));

  const std::wstring separator(data[0] % 2 == 0 ? 1 : 2, static_cast<wchar_t>(data[0]));
  std::wstring joined;
  for (const std::wstring& piece : tarvik::Split(text, separator)) {
    Demand(piece.find(separator) == std::wstring::npos);
    joined += piece + separator;
  }
  Demand(joined == text + separator);

  const std::wstring_view trimmed = tarvik::TrimBlanks(text);
  Demand(!trimmed.starts_with(L' ') && !trimmed.ends_with(L' '));
  Demand(text.find(trimmed) != std::wstring::npos);
  Demand(tarvik::TrimNull(std::wstring_view(text)).find(L'\0') == std::wstring_view::npos);
  Demand(tarvik::WidenAscii(tarvik::NarrowAscii(text)).size() == text.size());
  Demand(tarvik::UpperCaseAscii(text).size() == text.size());

  int64_t number = 0;
  std::memcpy(&number, data, size < sizeof number ? size : sizeof number);
  Demand(std::to_wstring(number) == tarvik::Decimal(number));
  const auto narrow = static_cast<int32_t>(number);
  Demand(tarvik::ParseInt32(tarvik::ZeroPadded(narrow, 20)) == narrow);
  Demand(std::stoul(tarvik::Hexadecimal(static_cast<uint32_t>(number)), nullptr, 16) ==
         static_cast<uint32_t>(number));
}
