#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "net/winsock.h"
#include "platform/code_page.h"

namespace tarvik {

/// INADDR_NONE: not an address.
inline constexpr uint32_t kNoAddress = 0xFFFFFFFF;

/// The address of a dotted text or, if it is not one, the first address of the host with that name. In
/// network byte order; kNoAddress when the name cannot be resolved.
uint32_t HostToAddress(Winsock& winsock, CodePage& codePage, std::wstring_view text);

/// The address, given in network byte order, as dotted text; empty when the library returns none.
std::wstring IpToString(Winsock& winsock, uint32_t address);

/// The octets in decimal, joined by ".".
std::wstring DottedText(std::span<const unsigned char> octets);

/// The octets of one address of a host entry; empty when the entry's address length is not positive.
std::span<const unsigned char> OctetsOf(const HostEntry& host, const char* address);

}  // namespace tarvik
