#pragma once

#include <string>

#include "k7/k7_api.h"
#include "platform/code_page.h"
#include "report/check_context.h"

namespace tarvik {

/// Connects to the K7 Server on `host` and asks it `count` times, once a second, whether the CNC at `address`
/// is live; each answer is one line. `host` is updated when the library rewrites it. A failure ends the test
/// with a message box, which is empty when the address is and shows `countMessage` when the count is not a
/// whole number. A stop request takes effect at the end of the current second. Returns false on failure.
bool RunK7ApiTest(const report::CheckContext& context, K7Api& k7Api, CodePage& codePage, std::wstring address,
                  std::wstring& host, const std::wstring& count, const std::wstring& countMessage);

}  // namespace tarvik
