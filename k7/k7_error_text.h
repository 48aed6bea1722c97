#pragma once

#include <cstdint>
#include <string>

#include "resources/messages.h"

namespace tarvik {

/// The meaning of an error code of the K7 API library: in Japanese in the built-in Japanese mode, otherwise
/// in English. Empty for an unknown code.
std::wstring K7ErrorText(int32_t code, LanguageMode mode);

}  // namespace tarvik
