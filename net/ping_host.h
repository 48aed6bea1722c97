#pragma once

#include <cstdint>
#include <string>

#include "app/result_list.h"
#include "net/icmp.h"
#include "net/winsock.h"
#include "platform/code_page.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What a ping takes.
struct PingTools {
  ResultList& results;
  ui::MessageBoxes& boxes;
  ui::Pump& pump;
  Winsock& winsock;
  CodePage& codePage;
  IcmpLibrary& icmp;
  IcmpLibrary::Handle icmpHandle;
};

/// What the status of an echo reply means; empty for 0.
std::wstring EvaluatePingResponse(const uint32_t& status);

/// Sends `count` echoes to the host (dotted address or name), about one a second, and writes one line
/// each. True when at least one brought a reply record, whatever its status. The stop request ends it.
bool PingHost(const PingTools& tools, const std::wstring& host, int32_t count);

}  // namespace tarvik
