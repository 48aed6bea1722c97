#pragma once

#include <cstdint>
#include <string>

#include "platform/code_page.h"
#include "ui/control.h"

namespace tarvik {

/// Filters one keystroke of a numeric field: lets digits and backspace pass, or only backspace once the field
/// is full, even if text is selected. A rejected key becomes 0. Despite its name, `MinLen` is the field's
/// maximum length, in bytes of the system code page.
void KeyPress_NumRange(int16_t& keyAscii, const ui::TextBox& box, int16_t MinLen, CodePage& codePage);

/// The same for the address box: ASCII letters, digits, ".", "-" and backspace; at most 63 bytes.
void KeyPress_HostRange(int16_t& keyAscii, const ui::ComboBox& box, CodePage& codePage);

/// Selects all text, so that the next keystroke replaces it.
void TextBoxSellAll(ui::TextBox& box);

/// True when the text is a whole number from 0 to 2147483647.
bool IsPingCount(const std::wstring& text);

}  // namespace tarvik
