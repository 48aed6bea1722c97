#pragma once

#include <cstdint>
#include <string>

namespace tarvik {

/// The meaning of a socket error code, in Japanese only: there are no English texts. Empty for 0; "(code)"
/// for an unknown code.
std::wstring WinsockErrorText(int32_t code);

}  // namespace tarvik
