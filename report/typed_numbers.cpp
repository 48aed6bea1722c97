#include "report/typed_numbers.h"

#include <limits>
#include <utility>

#include "platform/text.h"

namespace tarvik::report {
namespace {

/// Longer texts are truncated: a text box can hold more than a message box can show.
constexpr size_t kMaxShownCharacters = 60;

std::wstring Shown(const std::wstring& typed) {
  return typed.size() > kMaxShownCharacters ? typed.substr(0, kMaxShownCharacters) + L"..." : typed;
}

/// A whole number of any size, so that a large one is reported as out of range only.
bool IsWholeNumber(std::wstring_view text) {
  text = TrimSpaces(text);
  if (text.starts_with(L'-') || text.starts_with(L'+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of(L"0123456789") == std::wstring_view::npos;
}

}  // namespace

NumberError::NumberError(std::wstring typed, std::wstring boxName, int32_t minimum, int32_t maximum)
    : RuntimeError(L"\"" + report::BoxName(boxName) + L"\": enter a whole number from " + Decimal(minimum) +
                   L" to " + Decimal(maximum) + L", not \"" + Shown(typed) + L"\""),
      typed_(std::move(typed)),
      boxName_(std::move(boxName)),
      minimum_(minimum),
      maximum_(maximum) {}

std::wstring BoxName(const std::wstring& labelCaption) {
  std::wstring name = labelCaption;
  if (name.ends_with(L':')) name.pop_back();
  // Japanese captions have their mnemonic in brackets at the end.
  const size_t brackets = name.rfind(L"(&");
  if (brackets != std::wstring::npos && brackets + 4 == name.size()) name.resize(brackets);
  for (size_t at = name.find(L'&'); at != std::wstring::npos; at = name.find(L'&', at + 1)) name.erase(at, 1);
  return name;
}

int32_t ToInt32(const std::wstring& text, const std::wstring& boxName) {
  using Range = std::numeric_limits<int32_t>;
  if (const auto number = ParseInt32(text)) return *number;
  throw NumberError(text, boxName, 0, Range::max());
}

int16_t ToInt16(const std::wstring& text, const std::wstring& boxName) {
  using Range = std::numeric_limits<int16_t>;
  if (const auto number = ParseInt16(text)) return *number;
  throw NumberError(text, boxName, 0, Range::max());
}

std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t minimum,
                                   int32_t maximum, const Texts& texts, MessageBoxes& boxes) {
  const std::optional<int32_t> number = ParseInt32(typed);
  if (number && *number >= minimum && *number <= maximum) return number;
  boxes.Show(NumberRequiredText(typed, boxName, minimum, maximum, texts));
  return std::nullopt;
}

std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t minimum,
                                int32_t maximum, const Texts& texts) {
  const std::wstring box = BoxName(boxName);
  std::wstring message;
  if (!IsWholeNumber(typed))
    message = L"\"" + box + L"\"" + texts.GetOrBuiltIn(Message::NotAWholeNumber) + L"\r\n";
  return message + texts.GetOrEmpty(Message::NumberRequired) + L"\r\n" + box + L": " + Decimal(minimum) +
         texts.GetOrBuiltIn(Message::NumberRangeTo) + Decimal(maximum) + L"\r\n" +
         texts.GetOrEmpty(Message::NumberTyped) + L"\"" + Shown(typed) + L"\"";
}

}  // namespace tarvik::report
