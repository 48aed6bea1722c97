#pragma once

#include <cstdint>

#include "net/winsock.h"
#include "report/pc_card.h"
#include "report/pump.h"

namespace tarvik {

/// How one attempt to connect to a TCP port ended.
struct PortLook {
  report::PortAnswer answer = report::PortAnswer::Unknown;
  int error = 0;  ///< Windows Sockets error code; 0 without an error, as after a stop
};

/// Tries once, for at most three seconds, to open a TCP connection to the address, which is in network byte
/// order, and closes it at once. Sends no data. Handles window events meanwhile; a stop request ends the
/// attempt, with the answer Unknown. Calls WSAStartup and WSACleanup itself.
PortLook AskPort(Winsock& winsock, report::Pump& pump, uint32_t address, uint16_t port);

}  // namespace tarvik
