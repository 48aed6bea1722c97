#pragma once

#include <cstdint>
#include <string>

#include "platform/code_page.h"
#include "ui/control.h"

namespace tarvik {

/// Filters one keystroke of a numeric field: digits and backspace pass, a full field takes backspace only,
/// whatever is selected. A swallowed key becomes 0. In spite of its name `MinLen` is the most bytes of the
/// system's code page that the field may hold.
void KeyPress_NumRange(int16_t& keyAscii, const ui::TextBox& box, int16_t MinLen, CodePage& codePage);

/// The same for the address box: letters, digits, ".", "-" and backspace, at most 63 bytes.
void KeyPress_HostRange(int16_t& keyAscii, const ui::ComboBox& box, CodePage& codePage);

/// Selects the whole text, so that the next keystroke replaces it.
void TextBoxSellAll(ui::TextBox& box);

/// True when the text is a whole number from 0 to 2147483647.
bool IsPingCount(const std::wstring& text);

}  // namespace tarvik
