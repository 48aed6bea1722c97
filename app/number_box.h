#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "resources/messages.h"
#include "ui/message_boxes.h"

namespace tarvik {

/// The typed text as a whole number from `least` to `most`. Anything else gets a message box that names the
/// box, its range and what was typed, and gives nothing.
std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                   int32_t most, const Texts& texts, ui::MessageBoxes& boxes);

/// The message of that box.
std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                int32_t most, const Texts& texts);

}  // namespace tarvik
