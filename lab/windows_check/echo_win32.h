#pragma once

#include <string>
#include <vector>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// An IPv4 address of this PC as SIO_GET_INTERFACE_LIST reports it, in network byte order.
struct InterfaceAddress {
  DWORD address = 0;
  DWORD mask = 0;
  DWORD flags = 0;  ///< IFF_* bits
};

std::string Dotted(DWORD address);
/// Without the loopback address. Empty when the list cannot be read.
std::vector<InterfaceAddress> InterfaceAddresses();
/// The lists of SIO_GET_INTERFACE_LIST, GetAdaptersInfo and GetAdaptersAddresses as text.
std::string InterfaceLists();
/// The first gateway that is on the subnet of this address; 0 if no gateway is.
DWORD GatewayOf(const InterfaceAddress& own);

/// Sends echoes as the product does: 32 bytes, 100 ms time-out, a reply buffer of 278 bytes, one a second.
/// One line each: return value, error, status, address, round-trip time and duration of the call.
std::string SendEchoes(DWORD target, int count);

/// An address of the subnet, other than `own` and `gateway`, that answers no ARP request; 0 when the first
/// few tried answer or the subnet is too small. Sends ARP requests.
DWORD FreeAddress(const InterfaceAddress& own, DWORD gateway);

}  // namespace tarvik::check
