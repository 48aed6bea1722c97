#include "net/interface_list.h"

#include <algorithm>
#include <array>

#include "net/addresses.h"

namespace tarvik {
namespace {

// INTERFACE_INFO: flags, then three socket addresses of 24 bytes, each with its octets after family and port.
constexpr size_t kEntrySize = 76;
constexpr size_t kAddressOffset = 4 + 4;
constexpr size_t kNetmaskOffset = 4 + 2 * 24 + 4;
constexpr size_t kMostEntries = 10;

constexpr const wchar_t* kLoopback = L"127.0.0.1";

std::wstring AddressAt(std::span<const std::byte> entry, size_t offset) {
  return DottedText({reinterpret_cast<const unsigned char*>(entry.data()) + offset, 4});
}

class OpenSocket {
 public:
  explicit OpenSocket(Winsock& winsock)
      : winsock_(winsock),
        socket_(winsock.WSASocketA(Winsock::kAddressFamilyInternet, Winsock::kTypeDatagram,
                                   Winsock::kProtocolUdp, nullptr, 0, 0)) {}
  OpenSocket(const OpenSocket&) = delete;
  OpenSocket& operator=(const OpenSocket&) = delete;
  ~OpenSocket() {
    if (IsOpen()) Close();
  }

  bool IsOpen() const { return socket_ != Winsock::kInvalidSocket; }
  Winsock::Socket Get() const { return socket_; }
  bool Close() {
    const Winsock::Socket socket = socket_;
    socket_ = Winsock::kInvalidSocket;
    return winsock_.closesocket(socket) == 0;
  }

 private:
  Winsock& winsock_;
  Winsock::Socket socket_;
};

}  // namespace

std::vector<LocalAddressRecord> ParseInterfaceList(std::span<const std::byte> entries) {
  std::vector<LocalAddressRecord> list;
  for (; entries.size() >= kEntrySize; entries = entries.subspan(kEntrySize)) {
    std::wstring address = AddressAt(entries, kAddressOffset);
    if (address != kLoopback) list.push_back({std::move(address), AddressAt(entries, kNetmaskOffset), {}});
  }
  return list;
}

bool GetInterfaceList(Winsock& winsock, std::vector<LocalAddressRecord>& list) {
  list.assign(1, {});
  OpenSocket socket(winsock);
  if (!socket.IsOpen()) return false;
  std::array<std::byte, kMostEntries * kEntrySize> buffer{};
  uint32_t returned = 0;
  if (winsock.WSAIoctl(socket.Get(), Winsock::kGetInterfaceList, nullptr, 0, buffer.data(), buffer.size(),
                       &returned, nullptr, nullptr) != 0)
    return false;
  if (!socket.Close()) return false;
  list = ParseInterfaceList(std::span(buffer).first(std::min<size_t>(returned, buffer.size())));
  return true;
}

}  // namespace tarvik
