#include "app/number_box.h"

#include <utility>

#include "app/input_filters.h"
#include "platform/text.h"

namespace tarvik {
namespace {

/// A longer text is not shown whole: a box can hold a book, a screen cannot.
constexpr size_t kMaxShown = 60;

std::wstring Shown(const std::wstring& typed) {
  return typed.size() > kMaxShown ? typed.substr(0, kMaxShown) + L"..." : typed;
}

/// Of any size.
bool IsWholeNumber(std::wstring_view text) {
  text = TrimBlanks(text);
  if (text.starts_with(L'-') || text.starts_with(L'+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of(L"0123456789") == std::wstring_view::npos;
}

}  // namespace

NumberError::NumberError(std::wstring typed, std::wstring boxName, int32_t least, int32_t most)
    : RuntimeError(L"\"" + tarvik::BoxName(boxName) + L"\": enter a whole number from " + Decimal(least) +
                   L" to " + Decimal(most) + L", not \"" + Shown(typed) + L"\""),
      typed_(std::move(typed)),
      boxName_(std::move(boxName)),
      least_(least),
      most_(most) {}

std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                   int32_t most, const Texts& texts, ui::MessageBoxes& boxes) {
  const std::optional<int32_t> number = ParseInt32(typed);
  if (number && *number >= least && *number <= most) return number;
  boxes.Show(NumberRequiredText(typed, boxName, least, most, texts));
  return std::nullopt;
}

std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                int32_t most, const Texts& texts) {
  const auto text = [&texts](Message message) { return texts.Get(message).value_or(std::wstring()); };
  const std::wstring box = BoxName(boxName);
  std::wstring message;
  if (!IsWholeNumber(typed))
    message = L"\"" + box + L"\"" + texts.GetOrBuiltIn(Message::NotAWholeNumber) + L"\r\n";
  return message + text(Message::NumberRequired) + L"\r\n" + box + L": " + Decimal(least) +
         texts.GetOrBuiltIn(Message::NumberRangeTo) + Decimal(most) + L"\r\n" + text(Message::NumberTyped) +
         L"\"" + Shown(typed) + L"\"";
}

}  // namespace tarvik
