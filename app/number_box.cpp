#include "app/number_box.h"

#include "app/input_filters.h"
#include "platform/text.h"

namespace tarvik {
namespace {

/// A longer text is not shown whole: a box can hold a book, a screen cannot.
constexpr size_t kMostShown = 60;

}  // namespace

std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                   int32_t most, const Texts& texts, ui::MessageBoxes& boxes) {
  const std::optional<int32_t> number = ParseInt32(typed);
  if (number && *number >= least && *number <= most) return number;
  boxes.Show(NumberRequiredText(typed, boxName, least, most, texts));
  return std::nullopt;
}

std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                int32_t most, const Texts& texts) {
  const std::wstring shown = typed.size() > kMostShown ? typed.substr(0, kMostShown) + L"..." : typed;
  return texts.Get(Message::NumberRequired).value_or(std::wstring()) + L"\r\n" + BoxName(boxName) + L": " +
         Decimal(least) + L" ... " + Decimal(most) + L"\r\n" +
         texts.Get(Message::NumberTyped).value_or(std::wstring()) + L"\"" + shown + L"\"";
}

}  // namespace tarvik
