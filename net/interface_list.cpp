#include "net/interface_list.h"

#include <algorithm>
#include <optional>

#include "net/addresses.h"
#include "net/open_socket.h"

namespace tarvik {
namespace {

// INTERFACE_INFO: flags, then three socket addresses of 24 bytes, each with its octets after family and port.
constexpr size_t kEntryBytes = 76;
constexpr size_t kAddressOffset = 4 + 4;
constexpr size_t kNetmaskOffset = 4 + 2 * 24 + 4;
constexpr size_t kMaxInterfaces = 10;
/// Enough for any PC.
constexpr size_t kRetryBufferEntries = 1024;

std::wstring AddressAt(std::span<const std::byte> entry, size_t offset) {
  return DottedText({reinterpret_cast<const unsigned char*>(entry.data()) + offset, 4});
}

/// The library's list, read into a buffer for `entries` records; nothing on failure.
std::optional<std::vector<std::byte>> AskForList(Winsock& winsock, Winsock::Socket socket, size_t entries) {
  std::vector<std::byte> buffer(entries * kEntryBytes);
  uint32_t returned = 0;
  if (winsock.WSAIoctl(socket, Winsock::kGetInterfaceList, nullptr, 0, buffer.data(),
                       static_cast<uint32_t>(buffer.size()), &returned, nullptr, nullptr) != 0)
    return std::nullopt;
  buffer.resize(std::min<size_t>(returned, buffer.size()));
  return buffer;
}

}  // namespace

std::vector<LocalAddressRecord> ParseInterfaceList(std::span<const std::byte> entries) {
  std::vector<LocalAddressRecord> list;
  for (; entries.size() >= kEntryBytes; entries = entries.subspan(kEntryBytes)) {
    std::wstring address = AddressAt(entries, kAddressOffset);
    if (address != kLoopback) list.push_back({std::move(address), AddressAt(entries, kNetmaskOffset), {}});
  }
  return list;
}

bool GetInterfaceList(Winsock& winsock, std::vector<LocalAddressRecord>& list) {
  list.assign(1, {});
  OpenSocket socket(winsock, Winsock::kTypeDatagram, Winsock::kProtocolUdp);
  if (!socket.IsOpen()) return false;
  std::optional<std::vector<std::byte>> bytes = AskForList(winsock, socket.Get(), kMaxInterfaces);
  // When the buffer is too small, some versions of the library return the entries that fit and others fail.
  if (!bytes && winsock.WSAGetLastError() == Winsock::kBufferTooSmall)
    bytes = AskForList(winsock, socket.Get(), kRetryBufferEntries);
  if (!bytes || !socket.Close()) return false;
  list = ParseInterfaceList(std::span(*bytes).first(std::min(bytes->size(), kMaxInterfaces * kEntryBytes)));
  return true;
}

}  // namespace tarvik
