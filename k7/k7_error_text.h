#pragma once

#include <cstdint>
#include <string>

#include "resources/messages.h"

namespace tarvik {

/// What an error code of the K7 API library means, in Japanese for the built-in Japanese texts and in English
/// for every other mode; empty for a code that is not known.
std::wstring K7ErrorText(int32_t code, LanguageMode mode);

}  // namespace tarvik
