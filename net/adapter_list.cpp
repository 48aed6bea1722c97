// Reads the chain of records that GetAdaptersAddresses writes. The records differ in length from one Windows
// to the next, so each is read as far as its own length and the buffer allow; the rest stays zero.

#include "net/adapter_list.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "net/addresses.h"

namespace tarvik {
namespace {

constexpr uint32_t kAdapterFlags =
    IpHelper::kSkipAnycast | IpHelper::kSkipMulticast | IpHelper::kSkipDnsServer | IpHelper::kIncludeGateways;

/// Large enough for most PCs at the first try.
constexpr uint32_t kFirstAdapterListBytes = 16 * 1024;
/// A card needs a few kilobytes at most, so a larger size is not credible.
constexpr uint32_t kMaxAdapterListBytes = 1024 * 1024;
/// The list can grow between two calls, for example when a card is plugged in.
constexpr int kMaxBufferTries = 3;

/// Bounds the work on a corrupt buffer; no PC has this many cards, or addresses on one card.
constexpr int kMaxChainLinks = 64;
/// The longest name of a card that Windows accepts.
constexpr size_t kMaxNameCharacters = 256;

/// The members that every version of the library writes.
constexpr size_t kMinAdapterBytes = offsetof(IpAdapterAddresses, FirstPrefix) + sizeof(void*);
constexpr size_t kMinUnicastBytes = offsetof(IpAdapterUnicastAddress, PrefixOrigin);
constexpr size_t kMinGatewayBytes = offsetof(IpAdapterGatewayAddress, Address) + sizeof(SocketAddress);

/// sockaddr_in: family (2 bytes), port (2 bytes), then the four octets.
constexpr size_t kOctetsOffset = 4;
constexpr size_t kSocketAddressBytes = 8;

class AddressesBuffer {
 public:
  explicit AddressesBuffer(std::span<const std::byte> bytes) : bytes_(bytes) {}

  /// Reads the record at `place` as far as it goes. False when its first `minimum` bytes are not inside both
  /// the buffer and the record.
  template <typename Record>
  bool Read(const void* place, size_t minimum, Record& record) const {
    const std::span<const std::byte> rest = From(place);
    uint32_t length = 0;
    if (rest.size() < sizeof length) return false;
    std::memcpy(&length, rest.data(), sizeof length);
    const size_t readable = std::min({sizeof record, rest.size(), size_t{length}});
    if (readable < minimum) return false;
    record = {};
    std::memcpy(&record, rest.data(), readable);
    return true;
  }

  /// An IPv4 address in network byte order; 0 when it is not one.
  uint32_t ReadAddress(const SocketAddress& from) const {
    const std::span<const std::byte> rest = From(from.lpSockaddr);
    if (from.iSockaddrLength < static_cast<int32_t>(kSocketAddressBytes) || rest.size() < kSocketAddressBytes)
      return 0;
    uint16_t family = 0;
    std::memcpy(&family, rest.data(), sizeof family);
    uint32_t address = 0;
    if (family == IpHelper::kFamilyInternet)
      std::memcpy(&address, rest.data() + kOctetsOffset, sizeof address);
    return address;
  }

  std::wstring ReadText(const char16_t* from) const {
    std::wstring text;
    const std::span<const std::byte> rest = From(from);
    for (size_t at = 0; at + sizeof(char16_t) <= rest.size() && text.size() < kMaxNameCharacters;
         at += sizeof(char16_t)) {
      char16_t character = 0;
      std::memcpy(&character, rest.data() + at, sizeof character);
      if (character == 0) break;
      text += static_cast<wchar_t>(character);
    }
    return text;
  }

 private:
  /// The buffer from `place` to its end; empty when `place` is outside.
  std::span<const std::byte> From(const void* place) const {
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    const auto begin = reinterpret_cast<std::uintptr_t>(bytes_.data());
    if (address < begin || address - begin > bytes_.size()) return {};
    return bytes_.subspan(address - begin);
  }

  std::span<const std::byte> bytes_;
};

std::wstring DottedAddress(uint32_t address) {
  std::array<unsigned char, sizeof address> octets{};
  std::memcpy(octets.data(), &address, sizeof address);
  return DottedText(octets);
}

uint32_t MaskOf(uint8_t prefixLength) {
  std::array<unsigned char, 4> octets{};
  if (prefixLength > octets.size() * 8) return 0;
  for (size_t bit = 0; bit < prefixLength; ++bit)
    octets[bit / 8] = static_cast<unsigned char>(octets[bit / 8] | 0x80U >> bit % 8);
  uint32_t mask = 0;
  std::memcpy(&mask, octets.data(), sizeof mask);
  return mask;
}

report::CardKind KindOf(uint32_t type) {
  switch (type) {
    // Also what most virtual cards claim to be.
    case IpAdapterAddresses::kEthernet:
      return report::CardKind::Cable;
    case IpAdapterAddresses::kWirelessLan:
      return report::CardKind::Wireless;
    case IpAdapterAddresses::kPointToPoint:
    case IpAdapterAddresses::kProprietaryVirtual:
    case IpAdapterAddresses::kTunnel:
      return report::CardKind::Virtual;
    default:
      return report::CardKind::Other;
  }
}

/// Some drivers report neither up nor down. Nobody is sent to a cable unless Windows says that it is out.
bool IsUp(uint32_t status) {
  return status != IpAdapterAddresses::kStatusDown && status != IpAdapterAddresses::kStatusNotPresent &&
         status != IpAdapterAddresses::kStatusLowerLayerDown;
}

Adapter ReadAdapter(const AddressesBuffer& buffer, const IpAdapterAddresses& record) {
  Adapter adapter;
  adapter.card.name = buffer.ReadText(record.FriendlyName);
  adapter.card.description = buffer.ReadText(record.Description);
  adapter.card.kind = KindOf(record.IfType);
  adapter.card.index = record.IfIndex;
  adapter.card.up = IsUp(record.OperStatus);

  IpAdapterUnicastAddress unicast;
  const void* place = record.FirstUnicastAddress;
  for (int i = 0; i < kMaxChainLinks && buffer.Read(place, kMinUnicastBytes, unicast);
       ++i, place = unicast.Next)
    if (const uint32_t address = buffer.ReadAddress(unicast.Address))
      adapter.addresses.push_back({address, MaskOf(unicast.OnLinkPrefixLength)});

  IpAdapterGatewayAddress gateway;
  place = record.FirstGatewayAddress;
  for (int i = 0; i < kMaxChainLinks && buffer.Read(place, kMinGatewayBytes, gateway);
       ++i, place = gateway.Next)
    if (const uint32_t address = buffer.ReadAddress(gateway.Address))
      adapter.card.gateways.push_back(DottedAddress(address));
  return adapter;
}

}  // namespace

void NameAddress(report::PcCard& card, const AdapterAddress& address) {
  card.address = DottedAddress(address.address);
  card.mask = address.mask == 0 ? std::wstring() : DottedAddress(address.mask);
}

std::vector<Adapter> ParseAdapters(std::span<const std::byte> buffer) {
  std::vector<Adapter> adapters;
  const AddressesBuffer records(buffer);
  IpAdapterAddresses record;
  const void* place = buffer.data();
  for (int i = 0; i < kMaxChainLinks && records.Read(place, kMinAdapterBytes, record);
       ++i, place = record.Next) {
    if (record.IfType == IpAdapterAddresses::kLoopback) continue;
    adapters.push_back(ReadAdapter(records, record));
    if (!adapters.back().addresses.empty())
      NameAddress(adapters.back().card, adapters.back().addresses.front());
  }
  return adapters;
}

std::vector<Adapter> ReadAdapters(IpHelper& ipHelper) {
  std::vector<std::byte> buffer;
  uint32_t size = kFirstAdapterListBytes;
  uint32_t result = IpHelper::kBufferOverflow;
  for (int i = 0; i < kMaxBufferTries && result == IpHelper::kBufferOverflow; ++i) {
    if (size > kMaxAdapterListBytes) return {};
    buffer.assign(size, std::byte{0});
    result = ipHelper.GetAdaptersAddresses(IpHelper::kFamilyInternet, kAdapterFlags, nullptr, buffer.data(),
                                           &size);
  }
  if (result != IpHelper::kSuccess) return {};
  return ParseAdapters(buffer);
}

}  // namespace tarvik
