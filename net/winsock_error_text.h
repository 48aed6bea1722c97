#pragma once

#include <cstdint>
#include <string>

namespace tarvik {

/// What a socket error code means, in Japanese (there are no English wordings). Empty for 0; "(code)" for
/// a code that has no wording.
std::wstring WinsockErrorText(int32_t code);

}  // namespace tarvik
