#include "lab/windows_check/echo_win32.h"

#include <bit>

// After windows.h.
#include <ws2tcpip.h>

#include <iphlpapi.h>

#include <icmpapi.h>

namespace tarvik::check {
namespace {

constexpr size_t kMaxInterfaceEntries = 64;

DWORD AddressIn(const sockaddr_gen& place) { return place.AddressIn.sin_addr.s_addr; }

/// The raw entries of SIO_GET_INTERFACE_LIST; empty when they cannot be read.
std::vector<INTERFACE_INFO> RawInterfaces() {
  WSADATA data{};
  ::WSAStartup(MAKEWORD(2, 2), &data);
  std::vector<INTERFACE_INFO> entries(kMaxInterfaceEntries);
  const SOCKET socket = ::WSASocketW(AF_INET, SOCK_DGRAM, IPPROTO_UDP, nullptr, 0, 0);
  DWORD returned = 0;
  const int result =
      ::WSAIoctl(socket, SIO_GET_INTERFACE_LIST, nullptr, 0, entries.data(),
                 static_cast<DWORD>(entries.size() * sizeof(INTERFACE_INFO)), &returned, nullptr, nullptr);
  entries.resize(result == 0 ? returned / sizeof(INTERFACE_INFO) : 0);
  ::closesocket(socket);
  ::WSACleanup();
  return entries;
}

std::string FlagsText(DWORD number) {
  char text[16] = {};
  ::wsprintfA(text, "0x%lX", number);
  return text;
}

std::string AddressesWithMasks(const IP_ADDR_STRING* next) {
  std::string text;
  for (; next != nullptr; next = next->Next)
    text.append(" ").append(next->IpAddress.String).append("/").append(next->IpMask.String);
  return text;
}

/// The buffer of GetAdaptersInfo; `result`: what it returned. Room for adapters that appear between the
/// calls.
std::vector<IP_ADAPTER_INFO> AdapterInfos(DWORD& result) {
  ULONG size = 0;
  result = ::GetAdaptersInfo(nullptr, &size);
  if (result != ERROR_BUFFER_OVERFLOW) return {};
  std::vector<IP_ADAPTER_INFO> adapters(size / sizeof(IP_ADAPTER_INFO) + 8);
  size = static_cast<ULONG>(adapters.size() * sizeof(IP_ADAPTER_INFO));
  result = ::GetAdaptersInfo(adapters.data(), &size);
  if (result != ERROR_SUCCESS) adapters.clear();
  return adapters;
}

std::string AdaptersInfoText() {
  DWORD result = 0;
  const std::vector<IP_ADAPTER_INFO> adapters = AdapterInfos(result);
  std::string text = "GetAdaptersInfo: result " + std::to_string(result);
  for (const IP_ADAPTER_INFO* next = adapters.data(); next != nullptr; next = next->Next)
    text += "\n  " + std::to_string(next->Index) + ": addresses" + AddressesWithMasks(&next->IpAddressList) +
            ", gateways" + AddressesWithMasks(&next->GatewayList) + ", DHCP " +
            std::to_string(next->DhcpEnabled);
  return text;
}

std::string SocketAddressText(const SOCKET_ADDRESS& address) {
  if (address.lpSockaddr == nullptr || address.lpSockaddr->sa_family != AF_INET) return "?";
  return Dotted(std::bit_cast<sockaddr_in>(*address.lpSockaddr).sin_addr.s_addr);
}

std::string AdaptersAddressesText() {
  constexpr ULONG kFlags = GAA_FLAG_INCLUDE_GATEWAYS;
  ULONG size = 64 * 1024;
  std::vector<ULONGLONG> buffer(size / sizeof(ULONGLONG));
  auto* const first = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data());
  const ULONG result = ::GetAdaptersAddresses(AF_INET, kFlags, nullptr, first, &size);
  std::string text = "GetAdaptersAddresses: result " + std::to_string(result);
  if (result != ERROR_SUCCESS) return text;
  for (const IP_ADAPTER_ADDRESSES* next = first; next != nullptr; next = next->Next) {
    text += "\n  " + std::to_string(next->IfIndex) + ": type " + std::to_string(next->IfType) + ", status " +
            std::to_string(next->OperStatus) + " (1 = up, 2 = down), addresses";
    for (const auto* each = next->FirstUnicastAddress; each != nullptr; each = each->Next)
      text += " " + SocketAddressText(each->Address) + "/" + std::to_string(each->OnLinkPrefixLength) +
              " state " + std::to_string(each->DadState);
    text += ", gateways";
    for (const auto* each = next->FirstGatewayAddress; each != nullptr; each = each->Next)
      text += " " + SocketAddressText(each->Address);
  }
  return text;
}

}  // namespace

std::string Dotted(DWORD address) {
  std::string text;
  for (const int shift : {0, 8, 16, 24})
    text += (shift == 0 ? "" : ".") + std::to_string(address >> shift & 0xFF);
  return text;
}

std::vector<InterfaceAddress> InterfaceAddresses() {
  const DWORD loopback = htonl(INADDR_LOOPBACK);
  std::vector<InterfaceAddress> addresses;
  for (const INTERFACE_INFO& entry : RawInterfaces())
    if (AddressIn(entry.iiAddress) != loopback)
      addresses.push_back({AddressIn(entry.iiAddress), AddressIn(entry.iiNetmask), entry.iiFlags});
  return addresses;
}

std::string InterfaceLists() {
  std::string text = "SIO_GET_INTERFACE_LIST:";
  for (const INTERFACE_INFO& entry : RawInterfaces())
    text += "\n  " + Dotted(AddressIn(entry.iiAddress)) + "/" + Dotted(AddressIn(entry.iiNetmask)) +
            ", broadcast " + Dotted(AddressIn(entry.iiBroadcastAddress)) + ", flags " +
            FlagsText(entry.iiFlags);
  return text + "\n" + AdaptersInfoText() + "\n" + AdaptersAddressesText();
}

DWORD GatewayOf(const InterfaceAddress& own) {
  DWORD result = 0;
  const std::vector<IP_ADAPTER_INFO> adapters = AdapterInfos(result);
  for (const IP_ADAPTER_INFO* next = adapters.data(); next != nullptr; next = next->Next)
    for (const IP_ADDR_STRING* each = &next->GatewayList; each != nullptr; each = each->Next) {
      const DWORD gateway = ::inet_addr(each->IpAddress.String);
      if (gateway != 0 && gateway != INADDR_NONE && ((gateway ^ own.address) & own.mask) == 0) return gateway;
    }
  return 0;
}

std::string SendEchoes(DWORD target, int count) {
  constexpr WORD kRequestBytes = 32;
  constexpr DWORD kReplyBytes = 278;
  constexpr DWORD kTimeOutMs = 100;
  constexpr int kRhythmMs = 1000;
  const HANDLE icmp = ::IcmpCreateFile();
  if (icmp == INVALID_HANDLE_VALUE) return "IcmpCreateFile: error " + std::to_string(::GetLastError());
  std::string text = "to " + Dotted(target);
  std::string request(kRequestBytes, ' ');
  for (int i = 0; i < count; ++i) {
    alignas(ICMP_ECHO_REPLY) char buffer[kReplyBytes] = {};
    ::SetLastError(0);
    const ULONGLONG begin = ::GetTickCount64();
    const DWORD replies =
        ::IcmpSendEcho(icmp, target, request.data(), kRequestBytes, nullptr, buffer, kReplyBytes, kTimeOutMs);
    const DWORD error = ::GetLastError();
    const ULONGLONG duration = ::GetTickCount64() - begin;
    const auto& reply = *reinterpret_cast<const ICMP_ECHO_REPLY*>(buffer);
    text += "\n" + std::to_string(i + 1) + ": returned " + std::to_string(replies) + ", error " +
            std::to_string(error) + ", status " + std::to_string(reply.Status) + " from " +
            Dotted(reply.Address) + ", time " + std::to_string(reply.RoundTripTime) + " ms, bytes " +
            std::to_string(reply.DataSize) + ", TTL " + std::to_string(reply.Options.Ttl) + "; took " +
            std::to_string(duration) + " ms";
    if (i + 1 < count) WaitUntil(kRhythmMs, [] { return false; });
  }
  ::IcmpCloseHandle(icmp);
  return text;
}

DWORD FreeAddress(const InterfaceAddress& own, DWORD gateway) {
  constexpr DWORD kTries = 5;
  const DWORD broadcast = ntohl(own.address | ~own.mask);
  const DWORD hosts = ~ntohl(own.mask);
  for (DWORD i = 1; i <= kTries && i < hosts; ++i) {
    const DWORD candidate = htonl(broadcast - i);
    if (candidate == own.address || candidate == gateway) continue;
    ULONG mac[2] = {};
    ULONG size = sizeof mac;
    if (::SendARP(candidate, own.address, mac, &size) != NO_ERROR) return candidate;
  }
  return 0;
}

}  // namespace tarvik::check
