#pragma once

#include <string>

#include "k7/k7_api.h"
#include "platform/code_page.h"
#include "report/check_context.h"

namespace tarvik {

/// Connects to the K7 Server on `host` and asks it once a second, as often as `count` says, whether the CNC
/// at the address is live; each answer is one line. The library may rewrite both texts. A failure ends the
/// test with a message box; a count that is no number has `countMessage`. The stop request ends it at the end
/// of the present second. True unless it failed.
bool RunK7ApiTest(const report::CheckContext& context, K7Api& k7Api, CodePage& codePage, std::wstring address,
                  std::wstring& host, const std::wstring& count, const std::wstring& countMessage);

}  // namespace tarvik
