#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "net/winsock.h"

namespace tarvik::test {

/// The octets of an IPv4 address in dotted decimal; nothing for any other text.
inline std::optional<std::array<unsigned char, 4>> OctetsOfText(const std::string& text) {
  std::array<unsigned char, 4> octets{};
  size_t part = 0;
  int value = -1;
  for (size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || text[i] == '.') {
      if (value < 0 || part == 4) return std::nullopt;
      octets[part++] = static_cast<unsigned char>(value);
      value = -1;
    } else if (text[i] >= '0' && text[i] <= '9') {
      value = (value < 0 ? 0 : value * 10) + (text[i] - '0');
      if (value > 255) return std::nullopt;
    } else {
      return std::nullopt;
    }
  }
  return part == 4 ? std::optional(octets) : std::nullopt;
}

/// inet_addr as documented: one to four parts separated by ".", each decimal, octal after "0" or hexadecimal
/// after "0x"; the last part fills the remaining bytes. 0xFFFFFFFF for any other text.
inline uint32_t InetAddr(const std::string& text) {
  constexpr uint32_t kNone = 0xFFFFFFFF;
  std::vector<uint64_t> parts;
  size_t at = 0;
  do {
    int base = 10;
    const size_t start = at;
    if (text.compare(at, 2, "0x") == 0 || text.compare(at, 2, "0X") == 0) {
      base = 16;
      at += 2;
    } else if (text.compare(at, 1, "0") == 0) {
      base = 8;
    }
    uint64_t value = 0;
    const size_t digits = at;
    for (; at < text.size() && text[at] != '.'; ++at) {
      const size_t digit = std::string("0123456789abcdef").find(static_cast<char>(std::tolower(text[at])));
      if (digit >= static_cast<size_t>(base) || value > kNone) return kNone;
      value = value * static_cast<uint64_t>(base) + digit;
    }
    if (at == start || at == digits || parts.size() == 4) return kNone;
    parts.push_back(value);
  } while (at < text.size() && ++at > 0);
  const size_t last = parts.size() - 1;
  if (text.back() == '.' || parts[last] >= uint64_t{1} << 8 * (4 - last)) return kNone;
  uint64_t number = parts[last];
  for (size_t i = 0; i < last; ++i) {
    if (parts[i] > 255) return kNone;
    number |= parts[i] << 8 * (3 - i);
  }
  std::array<unsigned char, 4> octets{};
  for (size_t i = 0; i < 4; ++i) octets[i] = static_cast<unsigned char>(number >> 8 * (3 - i));
  uint32_t address = 0;
  std::memcpy(&address, octets.data(), sizeof address);
  return address;
}

/// An IPv4 address in dotted decimal as a number in network byte order.
inline uint32_t AddressNumber(const std::string& dotted) {
  const auto octets = OctetsOfText(dotted);
  if (!octets) throw std::invalid_argument("not an IPv4 address: " + dotted);
  uint32_t number = 0;
  std::memcpy(&number, octets->data(), sizeof number);
  return number;
}

/// A socket library without a network. It resolves the added hosts; as on Windows, the empty name is this PC.
class FakeWinsock final : public Winsock {
 public:
  /// Makes gethostbyname resolve the name to these addresses, in this order.
  void AddHost(const std::string& name, std::initializer_list<const char*> addresses) {
    Host& host = hosts_[name];
    host.addresses.clear();
    for (const char* address : addresses) {
      const auto octets = OctetsOfText(address).value();
      host.addresses.emplace_back(octets.begin(), octets.end());
    }
    host.length = 4;
  }

  /// The same with addresses of any bytes and any length field.
  void AddRawHost(const std::string& name, std::vector<std::vector<unsigned char>> addresses,
                  int16_t length) {
    hosts_[name] = {std::move(addresses), length, {}, {}};
  }

  /// Appends an entry to the interface list.
  void AddInterface(const std::string& address, const std::string& mask) {
    std::array<std::byte, 76> entry{};
    const auto addressOctets = OctetsOfText(address).value();
    const auto maskOctets = OctetsOfText(mask).value();
    std::memcpy(entry.data() + 8, addressOctets.data(), 4);
    std::memcpy(entry.data() + 56, maskOctets.data(), 4);
    interfaceBytes.insert(interfaceBytes.end(), entry.begin(), entry.end());
  }

  int WSAStartup(uint16_t versionRequested, WsaData& answer) override {
    ++startups;
    requestedVersion = versionRequested;
    answer = data;
    return startupResult;
  }
  int WSACleanup() override {
    ++cleanups;
    return cleanupResult;
  }
  int WSAGetLastError() override { return lastError; }

  int gethostname(char* name, int nameLength) override {
    if (!hostNameResult) {
      std::memset(name, 0x55, static_cast<size_t>(nameLength));
      return kSocketError;
    }
    hostNameBufferSize = nameLength;
    std::memcpy(name, hostNameResult->data(),
                std::min(hostNameResult->size(), static_cast<size_t>(nameLength)));
    return 0;
  }
  const HostEntry* gethostbyname(const char* name) override {
    lookups.emplace_back(name);
    if (*name == '\0' && !hosts_.contains("")) AddHost("", {"127.0.0.1"});
    const auto found = hosts_.find(name);
    if (found == hosts_.end()) {
      lastError = lookupError;
      return nullptr;
    }
    Host& host = found->second;
    host.list.clear();
    for (auto& address : host.addresses) host.list.push_back(reinterpret_cast<char*>(address.data()));
    host.list.push_back(nullptr);
    host.entry.h_addrtype = 2;
    host.entry.h_length = host.length;
    host.entry.h_addr_list = withoutAddressList ? nullptr : host.list.data();
    return &host.entry;
  }
  uint32_t inet_addr(const char* text) override { return InetAddr(text); }
  const char* inet_ntoa(uint32_t address) override {
    if (noText) return nullptr;
    std::array<unsigned char, 4> octets{};
    std::memcpy(octets.data(), &address, octets.size());
    text_.clear();
    for (const unsigned char octet : octets) text_ += (text_.empty() ? "" : ".") + std::to_string(octet);
    return text_.c_str();
  }

  Socket WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo, uint32_t group,
                    uint32_t flags) override {
    if (type == kTypeStream) {
      if (!socketOpens || addressFamily != kAddressFamilyInternet || protocol != kProtocolTcp)
        return kInvalidSocket;
      tcp_ = {};
      openSockets.insert(kTcpSocket);
      return kTcpSocket;
    }
    socketArguments = {addressFamily, type, protocol};
    plainSocket = protocolInfo == nullptr && group == 0 && flags == 0;
    if (!socketOpens) return kInvalidSocket;
    openSockets.insert(kSocket);
    return kSocket;
  }
  int WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out, uint32_t outSize,
               uint32_t* bytesReturned, void* overlapped, void* completionRoutine) override {
    ioctlCode = controlCode;
    ioctlBufferSize = outSize;
    const bool asExpected = openSockets.contains(socket) && in == nullptr && inSize == 0 &&
                            overlapped == nullptr && completionRoutine == nullptr;
    if (!asExpected || !ioctlSucceeds) return kSocketError;
    if (refusesSmallBuffer && outSize < interfaceBytes.size()) {
      lastError = kBufferTooSmall;
      return kSocketError;
    }
    const size_t filled = std::min<size_t>(interfaceBytes.size(), outSize);
    if (filled > 0) std::memcpy(out, interfaceBytes.data(), filled);
    *bytesReturned = ioctlReturned.value_or(static_cast<uint32_t>(filled));
    return 0;
  }
  int ioctlsocket(Socket socket, uint32_t command, uint32_t* argument) override {
    if (socket != kTcpSocket || !openSockets.contains(socket) || command != kSetNonBlocking)
      return FailWith(kNotASocket);
    tcp_.nonBlocking = *argument != 0;
    return 0;
  }
  int connect(Socket socket, const InternetAddress& address) override {
    if (socket != kTcpSocket || !openSockets.contains(socket)) return FailWith(kNotASocket);
    const auto* const port = reinterpret_cast<const unsigned char*>(&address.sin_port);
    connects.push_back({address.sin_addr, static_cast<uint16_t>(port[0] << 8 | port[1]), tcp_.nonBlocking});
    const auto found = ports.find(connects.back().port);
    if (found != ports.end()) tcp_.port = found->second;
    return tcp_.port.connectError == 0 ? 0 : FailWith(tcp_.port.connectError);
  }
  int select(SocketSet* read, SocketSet* write, SocketSet* except, const TimeValue& timeout) override {
    const auto isTcp = [](const SocketSet* set) {
      return set != nullptr && set->fd_count == 1 && set->fd_array[0] == kTcpSocket;
    };
    if (read != nullptr || !isTcp(write) || !isTcp(except) || !openSockets.contains(kTcpSocket))
      return FailWith(kNotASocket);
    if (timeout.tv_sec != 0 || timeout.tv_usec != 0) ++blockingSelects;
    const bool ended = tcp_.port.pollsUntilEnd >= 0 && tcp_.polls++ >= tcp_.port.pollsUntilEnd;
    write->fd_count = ended && tcp_.port.error == 0 ? 1 : 0;
    except->fd_count = ended && tcp_.port.error != 0 ? 1 : 0;
    return ended ? 1 : 0;
  }
  int getsockopt(Socket socket, int level, int option, void* value, int* length) override {
    if (socket != kTcpSocket || level != kSocketLevel || option != kErrorOption || *length != sizeof(int))
      return FailWith(kNotASocket);
    std::memcpy(value, &tcp_.port.error, sizeof tcp_.port.error);
    return 0;
  }
  int closesocket(Socket socket) override {
    openSockets.erase(socket);
    return closeResult;
  }

  static constexpr Socket kSocket = 0x1C4;
  static constexpr Socket kTcpSocket = 0x1C8;
  static constexpr int kNotASocket = 10038;  ///< WSAENOTSOCK

  /// How a TCP port answers. As on Windows, connecting without blocking first fails with kWouldBlock; later
  /// select reports how it ended.
  struct Port {
    int error = 0;           ///< how it ends; 0 = open
    int pollsUntilEnd = -1;  ///< after how many calls of select; -1 = never
    int connectError = kWouldBlock;
  };
  struct Connect {
    uint32_t address = 0;
    uint16_t port = 0;
    bool nonBlocking = false;
  };

  int startupResult = 0;
  WsaData data{0x0101, 0x0202, "Fake sockets", "Running", 32767, 65467, 0};
  int cleanupResult = 0;
  int lastError = 0;
  int lookupError = 11001;  ///< last error for an unknown name
  std::optional<std::string> hostNameResult = std::string("technician\0", 11);
  bool withoutAddressList = false;  ///< host entries have a null list
  bool noText = false;              ///< inet_ntoa returns null
  bool socketOpens = true;
  bool ioctlSucceeds = true;
  bool refusesSmallBuffer = false;  ///< WSAIoctl fails instead of filling what fits
  std::vector<std::byte> interfaceBytes;
  std::optional<uint32_t> ioctlReturned;  ///< wrong byte count from WSAIoctl
  int closeResult = 0;

  std::map<uint16_t, Port> ports;  ///< all others never answer

  std::vector<Connect> connects;
  int blockingSelects = 0;  ///< calls of select that would wait
  int startups = 0;
  int cleanups = 0;
  uint16_t requestedVersion = 0;
  int hostNameBufferSize = 0;
  std::vector<std::string> lookups;
  std::array<int, 3> socketArguments{};  ///< family, type, protocol
  bool plainSocket = false;
  uint32_t ioctlCode = 0;
  uint32_t ioctlBufferSize = 0;
  std::set<Socket> openSockets;  ///< not closed yet

 private:
  struct Host {
    std::vector<std::vector<unsigned char>> addresses;
    int16_t length = 4;
    std::vector<char*> list;
    HostEntry entry;
  };

  struct Tcp {
    Port port;
    bool nonBlocking = false;
    int polls = 0;
  };

  int FailWith(int error) {
    lastError = error;
    return kSocketError;
  }

  Tcp tcp_;
  std::map<std::string, Host> hosts_;
  std::string text_;
};

}  // namespace tarvik::test
