#pragma once

#include <string>

#include "net/icmp.h"
#include "net/ip_helper.h"
#include "net/winsock.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/system.h"

namespace tarvik {

/// The platform libraries that the reachability check uses.
struct NetLibraries {
  Winsock& winsock;
  IcmpLibrary& icmp;
  IcmpLibrary::Handle icmpHandle;
  IpHelper& ipHelper;
  System& system;
  Files& files;
  Processes& processes;
  CodePage& codePage;
  const std::wstring& programFolder;  ///< where ipconfig's output is written temporarily
};

}  // namespace tarvik
