#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/result_list.h"
#include "net/icmp.h"
#include "net/ip_helper.h"
#include "net/winsock.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/os_version.h"
#include "platform/processes.h"
#include "resources/messages.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What the reachability check takes.
struct ReachabilityTools {
  ResultList& results;
  ui::MessageBoxes& boxes;
  const Texts& texts;
  ui::Pump& pump;
  Winsock& winsock;
  IcmpLibrary& icmp;
  IcmpLibrary::Handle icmpHandle;
  IpHelper& ipHelper;
  OsVersion& osVersion;
  Files& files;
  Processes& processes;
  CodePage& codePage;
  const std::wstring& programFolder;
};

/// Finds out, step by step, whether the target (host name or dotted address) can be reached: resolves it,
/// compares it with the PC's own subnets, pings a gateway when it lies outside of them, then pings the
/// target, `count` echoes each. The first step that fails ends the check with its lines. The stop request
/// ends it too; what was not tried is not judged. `addToHistory` is called once, when the target has an
/// address. True when the target answered.
/// The lines are added to the result list; the caller empties it first.
bool CheckReachability(const ReachabilityTools& tools, const std::wstring& target, int32_t count,
                       const std::function<void()>& addToHistory);

}  // namespace tarvik
