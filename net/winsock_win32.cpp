#include "net/winsock.h"

#include <algorithm>
#include <bit>
#include <iterator>

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

// ws2_32.dll is a KnownDLL: a static import never loads a copy planted next to the program.

static_assert(sizeof(HostEntry) == sizeof(hostent));
static_assert(offsetof(HostEntry, h_length) == offsetof(hostent, h_length));
static_assert(offsetof(HostEntry, h_addr_list) == offsetof(hostent, h_addr_list));
static_assert(Winsock::kInvalidSocket == INVALID_SOCKET && Winsock::kSocketError == SOCKET_ERROR);
static_assert(Winsock::kBufferTooSmall == WSAEFAULT);
static_assert(sizeof(InternetAddress) == sizeof(sockaddr_in) &&
              offsetof(InternetAddress, sin_addr) == offsetof(sockaddr_in, sin_addr));
static_assert(sizeof(SocketSet) == sizeof(fd_set) &&
              offsetof(SocketSet, fd_array) == offsetof(fd_set, fd_array));
static_assert(Winsock::kTypeStream == SOCK_STREAM && Winsock::kProtocolTcp == IPPROTO_TCP &&
              Winsock::kSetNonBlocking == static_cast<uint32_t>(FIONBIO) &&
              Winsock::kSocketLevel == SOL_SOCKET && Winsock::kErrorOption == SO_ERROR);
static_assert(Winsock::kWouldBlock == WSAEWOULDBLOCK && Winsock::kTimedOut == WSAETIMEDOUT &&
              Winsock::kConnectionRefused == WSAECONNREFUSED);
static_assert(Winsock::kAddressFamilyInternet == AF_INET && Winsock::kTypeDatagram == SOCK_DGRAM &&
              Winsock::kProtocolUdp == IPPROTO_UDP);

class Win32Winsock final : public Winsock {
 public:
  int WSAStartup(uint16_t versionRequested, WsaData& data) override {
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
  int WSACleanup() override { return ::WSACleanup(); }
  int WSAGetLastError() override { return ::WSAGetLastError(); }
  int gethostname(char* name, int nameLength) override { return ::gethostname(name, nameLength); }
  const HostEntry* gethostbyname(const char* name) override {
    return reinterpret_cast<const HostEntry*>(::gethostbyname(name));
  }
  uint32_t inet_addr(const char* text) override { return ::inet_addr(text); }
  const char* inet_ntoa(uint32_t address) override {
    in_addr in = {};
    in.s_addr = address;
    return ::inet_ntoa(in);
  }
  Socket WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo, uint32_t group,
                    uint32_t flags) override {
    return ::WSASocketA(addressFamily, type, protocol, static_cast<WSAPROTOCOL_INFOA*>(protocolInfo), group,
                        flags);
  }
  int WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out, uint32_t outSize,
               uint32_t* bytesReturned, void* overlapped, void* completionRoutine) override {
    DWORD returned = 0;
    const int result = ::WSAIoctl(socket, controlCode, in, inSize, out, outSize, &returned,
                                  static_cast<OVERLAPPED*>(overlapped),
                                  std::bit_cast<LPWSAOVERLAPPED_COMPLETION_ROUTINE>(completionRoutine));
    *bytesReturned = returned;
    return result;
  }
  int ioctlsocket(Socket socket, uint32_t command, uint32_t* argument) override {
    u_long value = *argument;
    const int result = ::ioctlsocket(socket, static_cast<long>(command), &value);
    *argument = value;
    return result;
  }
  int connect(Socket socket, const InternetAddress& address) override {
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  int select(SocketSet* read, SocketSet* write, SocketSet* except, const TimeValue& timeout) override {
    timeval wait{timeout.tv_sec, timeout.tv_usec};
    return ::select(0, reinterpret_cast<fd_set*>(read), reinterpret_cast<fd_set*>(write),
                    reinterpret_cast<fd_set*>(except), &wait);
  }
  int getsockopt(Socket socket, int level, int option, void* value, int* length) override {
    return ::getsockopt(socket, level, option, static_cast<char*>(value), length);
  }
  int closesocket(Socket socket) override { return ::closesocket(socket); }
};

}  // namespace

std::unique_ptr<Winsock> MakeWinsock() { return std::make_unique<Win32Winsock>(); }

}  // namespace tarvik
