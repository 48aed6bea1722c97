#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "net/winsock.h"
#include "platform/code_page.h"

namespace tarvik {

/// Stands for no address.
inline constexpr uint32_t kNoAddress = 0xFFFFFFFF;

/// The address of a dotted text or, when it is none, the first address of the host of that name; in
/// network byte order. kNoAddress when there is none.
uint32_t HostToAddress(Winsock& winsock, CodePage& codePage, std::wstring_view text);

/// The address as dotted text.
std::wstring IpToString(Winsock& winsock, uint32_t address);

/// The octets in decimal, joined by ".".
std::wstring DottedText(std::span<const unsigned char> octets);

/// The octets of an address of a host entry; none when its length is not positive.
std::span<const unsigned char> OctetsOf(const HostEntry& host, const char* address);

}  // namespace tarvik
