#pragma once

#include <string>

#include "app/result_list.h"
#include "k7/k7_api.h"
#include "platform/code_page.h"
#include "resources/messages.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What the K7 API test takes.
struct K7ApiTools {
  ResultList& results;
  ui::MessageBoxes& boxes;
  ui::Pump& pump;
  CodePage& codePage;
  K7Api& k7Api;
  LanguageMode mode;
};

/// Connects to the K7 Server on `host` and asks it once a second, as often as `count` says, whether the CNC
/// at the address is live; each answer is one line. The library may rewrite both texts. A failure ends the
/// test with a message box; a count that is no number has `countMessage`. The stop request ends it at the end
/// of the present second. True unless it failed.
bool RunK7ApiTest(const K7ApiTools& tools, std::wstring address, std::wstring& host,
                  const std::wstring& count, const std::wstring& countMessage);

}  // namespace tarvik
