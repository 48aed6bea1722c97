#include "net/addresses.h"

#include <algorithm>
#include <cstring>

#include "platform/text.h"

namespace tarvik {

uint32_t HostToAddress(Winsock& winsock, CodePage& codePage, std::wstring_view text) {
  const std::string name = codePage.ToAnsi(text);
  uint32_t address = winsock.inet_addr(name.c_str());
  if (address != kNoAddress) return address;
  const HostEntry* const host = winsock.gethostbyname(name.c_str());
  if (host == nullptr || host->h_addr_list == nullptr || host->h_addr_list[0] == nullptr) return kNoAddress;
  const auto octets = OctetsOf(*host, host->h_addr_list[0]);
  if (!octets.empty()) std::memcpy(&address, octets.data(), std::min(octets.size(), sizeof address));
  return address;
}

std::wstring IpToString(Winsock& winsock, uint32_t address) {
  const char* const text = winsock.inet_ntoa(address);
  return text == nullptr ? std::wstring() : WidenAscii(text);
}

std::wstring DottedText(std::span<const unsigned char> octets) {
  std::wstring text;
  for (const unsigned char octet : octets) {
    if (!text.empty()) text += L'.';
    text += Decimal(octet);
  }
  return text;
}

std::span<const unsigned char> OctetsOf(const HostEntry& host, const char* address) {
  if (host.h_length <= 0) return {};
  return {reinterpret_cast<const unsigned char*>(address), static_cast<size_t>(host.h_length)};
}

}  // namespace tarvik
