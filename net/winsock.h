#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// WSADATA. The order of its members differs between 32 and 64 bits, so the values are copied one by one and
/// this layout is our own.
struct WsaData {
  uint16_t wVersion = 0;      ///< granted version: low byte = major, high byte = minor
  uint16_t wHighVersion = 0;  ///< highest version the library supports
  char szDescription[257] = {};
  char szSystemStatus[129] = {};
  uint16_t iMaxSockets = 0;
  uint16_t iMaxUdpDg = 0;
  std::intptr_t lpVendorInfo = 0;
};

/// hostent, the result of gethostbyname. Belongs to the library and is valid until the next look-up.
struct HostEntry {
  char* h_name = nullptr;
  char** h_aliases = nullptr;
  int16_t h_addrtype = 0;
  int16_t h_length = 0;          ///< length of each address in bytes
  char** h_addr_list = nullptr;  ///< addresses in network byte order; the last pointer is null
};
static_assert(sizeof(HostEntry) == 4 * sizeof(void*));
static_assert(offsetof(HostEntry, h_addrtype) == 2 * sizeof(void*));
static_assert(offsetof(HostEntry, h_length) == 2 * sizeof(void*) + 2);
static_assert(offsetof(HostEntry, h_addr_list) == 3 * sizeof(void*));

/// sockaddr_in
struct InternetAddress {
  int16_t sin_family = 0;
  uint16_t sin_port = 0;  ///< in network byte order
  uint32_t sin_addr = 0;  ///< in network byte order
  char sin_zero[8] = {};
};
static_assert(sizeof(InternetAddress) == 16 && offsetof(InternetAddress, sin_addr) == 4);

/// fd_set: sockets, as many as `fd_count` says.
struct SocketSet {
  uint32_t fd_count = 0;
  std::uintptr_t fd_array[64] = {};
};
static_assert(sizeof(SocketSet) == 65 * sizeof(void*));

/// timeval
struct TimeValue {
  int32_t tv_sec = 0;
  int32_t tv_usec = 0;
};

/// Windows Sockets. Texts are ANSI; 32-bit addresses are in network byte order (the first octet is the lowest
/// byte in memory).
class Winsock {
 public:
  using Socket = std::uintptr_t;

  static constexpr Socket kInvalidSocket = ~Socket{0};
  static constexpr int kSocketError = -1;
  static constexpr uint16_t kVersion11 = 0x0101;
  static constexpr int kAddressFamilyInternet = 2;
  static constexpr int kTypeStream = 1;
  static constexpr int kTypeDatagram = 2;
  static constexpr int kProtocolTcp = 6;
  static constexpr int kProtocolUdp = 17;
  static constexpr uint32_t kSetNonBlocking = 0x8004667E;    ///< FIONBIO
  static constexpr int kSocketLevel = 0xFFFF;                ///< SOL_SOCKET
  static constexpr int kErrorOption = 0x1007;                ///< SO_ERROR
  static constexpr int kWouldBlock = 10035;                  ///< WSAEWOULDBLOCK
  static constexpr int kTimedOut = 10060;                    ///< WSAETIMEDOUT
  static constexpr int kConnectionRefused = 10061;           ///< WSAECONNREFUSED
  static constexpr int kBufferTooSmall = 10014;              ///< WSAEFAULT
  static constexpr uint32_t kGetInterfaceList = 0x4004747F;  ///< SIO_GET_INTERFACE_LIST

  virtual ~Winsock() = default;

  /// 0 on success, otherwise an error code.
  virtual int WSAStartup(uint16_t versionRequested, WsaData& data) = 0;
  /// 0 on success, otherwise kSocketError.
  virtual int WSACleanup() = 0;
  virtual int WSAGetLastError() = 0;

  /// 0 on success, otherwise kSocketError.
  virtual int gethostname(char* name, int nameLength) = 0;
  /// Null when the name cannot be resolved.
  virtual const HostEntry* gethostbyname(const char* name) = 0;
  /// INADDR_NONE (all ones) when the text is not an address, also when it is empty.
  virtual uint32_t inet_addr(const char* text) = 0;
  /// A text that belongs to the library and is valid until the next call; may be null.
  virtual const char* inet_ntoa(uint32_t address) = 0;

  /// kInvalidSocket when no socket can be opened.
  virtual Socket WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo, uint32_t group,
                            uint32_t flags) = 0;
  /// 0 on success, otherwise kSocketError. `bytesReturned`: number of bytes written to `out`.
  virtual int WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out,
                       uint32_t outSize, uint32_t* bytesReturned, void* overlapped,
                       void* completionRoutine) = 0;
  /// 0 on success, otherwise kSocketError.
  virtual int ioctlsocket(Socket socket, uint32_t command, uint32_t* argument) = 0;
  /// 0 on success, otherwise kSocketError. On a non-blocking socket the error is kWouldBlock while it is
  /// still connecting.
  virtual int connect(Socket socket, const InternetAddress& address) = 0;
  /// Keeps in `write` the sockets that have connected and in `except` those that failed to. Returns their
  /// number, 0 after `timeout`, and kSocketError on failure.
  virtual int select(SocketSet* read, SocketSet* write, SocketSet* except, const TimeValue& timeout) = 0;
  /// 0 on success, otherwise kSocketError. `*length`: size of `value` in bytes, then how many were written.
  virtual int getsockopt(Socket socket, int level, int option, void* value, int* length) = 0;
  /// 0 on success, otherwise kSocketError.
  virtual int closesocket(Socket socket) = 0;
};

/// Windows' own socket library (ws2_32).
std::unique_ptr<Winsock> MakeWinsock();

}  // namespace tarvik
