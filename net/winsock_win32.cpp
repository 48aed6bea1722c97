#include "net/winsock_win32.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "platform/windows_win32.h"

namespace tarvik {

// ws2_32 is one of Windows' own known libraries: a static import cannot be led astray to a planted copy.

static_assert(sizeof(HostEntry) == sizeof(hostent));
static_assert(offsetof(HostEntry, h_length) == offsetof(hostent, h_length));
static_assert(offsetof(HostEntry, h_addr_list) == offsetof(hostent, h_addr_list));
static_assert(Winsock::kInvalidSocket == INVALID_SOCKET && Winsock::kSocketError == SOCKET_ERROR);
static_assert(Winsock::kBufferTooSmall == WSAEFAULT);
static_assert(Winsock::kAddressFamilyInternet == AF_INET && Winsock::kTypeDatagram == SOCK_DGRAM &&
              Winsock::kProtocolUdp == IPPROTO_UDP);

int Win32Winsock::WSAStartup(uint16_t versionRequested, WsaData& data) {
  WSADATA granted = {};
  const int result = ::WSAStartup(versionRequested, &granted);
  data.wVersion = granted.wVersion;
  data.wHighVersion = granted.wHighVersion;
  std::copy(std::begin(granted.szDescription), std::end(granted.szDescription), data.szDescription);
  std::copy(std::begin(granted.szSystemStatus), std::end(granted.szSystemStatus), data.szSystemStatus);
  data.iMaxSockets = granted.iMaxSockets;
  data.iMaxUdpDg = granted.iMaxUdpDg;
  data.lpVendorInfo = std::bit_cast<std::intptr_t>(granted.lpVendorInfo);
  return result;
}

int Win32Winsock::WSACleanup() { return ::WSACleanup(); }

int Win32Winsock::WSAGetLastError() { return ::WSAGetLastError(); }

int Win32Winsock::gethostname(char* name, int nameLength) { return ::gethostname(name, nameLength); }

const HostEntry* Win32Winsock::gethostbyname(const char* name) {
  return reinterpret_cast<const HostEntry*>(::gethostbyname(name));
}

uint32_t Win32Winsock::inet_addr(const char* text) { return ::inet_addr(text); }

const char* Win32Winsock::inet_ntoa(uint32_t address) {
  in_addr in = {};
  in.s_addr = address;
  return ::inet_ntoa(in);
}

Winsock::Socket Win32Winsock::WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo,
                                         uint32_t group, uint32_t flags) {
  return ::WSASocketA(addressFamily, type, protocol, static_cast<WSAPROTOCOL_INFOA*>(protocolInfo), group,
                      flags);
}

int Win32Winsock::WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out,
                           uint32_t outSize, uint32_t* bytesReturned, void* overlapped,
                           void* completionRoutine) {
  DWORD returned = 0;
  const int result = ::WSAIoctl(socket, controlCode, in, inSize, out, outSize, &returned,
                                static_cast<OVERLAPPED*>(overlapped),
                                std::bit_cast<LPWSAOVERLAPPED_COMPLETION_ROUTINE>(completionRoutine));
  *bytesReturned = returned;
  return result;
}

int Win32Winsock::closesocket(Socket socket) { return ::closesocket(socket); }

}  // namespace tarvik
