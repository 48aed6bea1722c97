#pragma once

#include <string>

#include "platform/runtime_error.h"
#include "resources/messages.h"

namespace tarvik::report {

/// What the error dialog says: in the user's language where the error is a LibraryError or a NumberError,
/// otherwise the error's own text.
std::wstring ErrorText(const RuntimeError& error, const Texts& texts);

}  // namespace tarvik::report
