#include "app/input_filters.h"

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int16_t kBackspace = 8;
/// The longest label of a host name. Here it limits the whole box.
constexpr size_t kMaxHostBytes = 63;

bool IsDigit(int16_t key) { return key >= L'0' && key <= L'9'; }

bool IsHostCharacter(int16_t key) {
  return IsDigit(key) || (key >= L'A' && key <= L'Z') || (key >= L'a' && key <= L'z') || key == L'.' ||
         key == L'-';
}

void Filter(int16_t& keyAscii, bool full, bool allowed) {
  if (keyAscii != kBackspace && (full || !allowed)) keyAscii = 0;
}

}  // namespace

void KeyPress_NumRange(int16_t& keyAscii, const ui::TextBox& box, int16_t MinLen, CodePage& codePage) {
  const bool full = MinLen <= 0 || codePage.AnsiLength(box.Text()) >= static_cast<size_t>(MinLen);
  Filter(keyAscii, full, IsDigit(keyAscii));
}

void KeyPress_HostRange(int16_t& keyAscii, const ui::ComboBox& box, CodePage& codePage) {
  Filter(keyAscii, codePage.AnsiLength(box.Text()) >= kMaxHostBytes, IsHostCharacter(keyAscii));
}

void TextBoxSellAll(ui::TextBox& box) { box.SetSelection(0, static_cast<int>(box.Text().size())); }

bool IsPingCount(const std::wstring& text) { return ParseInt32(text).value_or(-1) >= 0; }

}  // namespace tarvik
