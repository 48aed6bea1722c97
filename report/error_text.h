#pragma once

#include <string>

#include "platform/runtime_error.h"
#include "resources/messages.h"

namespace tarvik::report {

/// The text of the error dialog: in the user's language for a LibraryError or a NumberError, otherwise the
/// error's own text.
std::wstring ErrorText(const RuntimeError& error, const Texts& texts);

}  // namespace tarvik::report
