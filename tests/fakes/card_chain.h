#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "net/ip_helper.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {

/// A network card as GetAdaptersAddresses reports it.
struct FakeCard {
  struct Address {
    std::string dotted;
    uint8_t prefixLength = 24;
  };

  std::u16string name;
  uint32_t index = 0;
  std::vector<Address> addresses;
  std::vector<std::string> gateways;
  uint32_t type = IpAdapterAddresses::kEthernet;
  uint32_t status = IpAdapterAddresses::kStatusUp;
  std::u16string description = u"Network card";
};

/// Writes cards into a buffer as GetAdaptersAddresses does: each record is followed by its texts, addresses
/// and gateways, to which it points.
class CardChain {
 public:
  /// The library's record is longer than what the product reads. Windows XP's ends after FirstPrefix.
  static constexpr uint32_t kRecordBytes = sizeof(void*) == 4 ? 376 : 448;
  static constexpr uint32_t kXpRecordBytes = sizeof(void*) == 4 ? 144 : 184;

  explicit CardChain(const std::vector<FakeCard>& cards, uint32_t recordBytes = kRecordBytes)
      : cards_(cards), recordBytes_(recordBytes) {}

  size_t Size() { return Lay(nullptr); }
  /// The buffer must have Size() bytes.
  void Write(std::byte* buffer) { Lay(buffer); }

 private:
  /// Reserves bytes, and copies `from` there when there is a buffer. Returns their place.
  std::byte* Put(const void* from, size_t bytes, size_t reserved) {
    std::byte* const place = buffer_ == nullptr ? nullptr : buffer_ + used_;
    if (place != nullptr) {
      std::memset(place, 0, reserved);
      if (bytes > 0) std::memcpy(place, from, bytes);
    }
    used_ += (reserved + 7) / 8 * 8;
    return place;
  }
  const char16_t* PutText(const std::u16string& text) {
    const size_t bytes = (text.size() + 1) * sizeof(char16_t);
    return reinterpret_cast<const char16_t*>(Put(text.c_str(), bytes, bytes));
  }
  SocketAddress PutAddress(const std::string& dotted) {
    InternetAddress address{static_cast<int16_t>(IpHelper::kFamilyInternet), 0, AddressNumber(dotted), {}};
    return {Put(&address, sizeof address, sizeof address), static_cast<int32_t>(sizeof address)};
  }
  template <typename Record>
  const Record* PutLast(const Record& record, std::byte*& previous) {
    std::byte* const place = Put(&record, sizeof record, sizeof record);
    if (previous != nullptr) std::memcpy(previous + offsetof(Record, Next), &place, sizeof place);
    previous = place;
    return reinterpret_cast<const Record*>(place);
  }

  size_t Lay(std::byte* buffer) {
    buffer_ = buffer;
    used_ = 0;
    std::byte* previous = nullptr;
    for (const FakeCard& card : cards_) {
      IpAdapterAddresses record;
      std::byte* const place = Put(nullptr, 0, recordBytes_);
      record.Length = recordBytes_;
      record.IfIndex = card.index;
      record.IfType = card.type;
      record.OperStatus = card.status;
      record.FriendlyName = PutText(card.name);
      record.Description = PutText(card.description);
      std::byte* last = nullptr;
      for (const FakeCard::Address& address : card.addresses) {
        IpAdapterUnicastAddress unicast;
        unicast.Length = sizeof unicast;
        unicast.Address = PutAddress(address.dotted);
        unicast.OnLinkPrefixLength = address.prefixLength;
        const auto* const put = PutLast(unicast, last);
        if (record.FirstUnicastAddress == nullptr) record.FirstUnicastAddress = put;
      }
      last = nullptr;
      for (const std::string& dotted : card.gateways) {
        IpAdapterGatewayAddress gateway;
        gateway.Length = sizeof gateway;
        gateway.Address = PutAddress(dotted);
        const auto* const put = PutLast(gateway, last);
        if (record.FirstGatewayAddress == nullptr) record.FirstGatewayAddress = put;
      }
      if (place == nullptr) continue;
      std::memcpy(place, &record, std::min<size_t>(sizeof record, recordBytes_));
      if (previous != nullptr)
        std::memcpy(previous + offsetof(IpAdapterAddresses, Next), &place, sizeof place);
      previous = place;
    }
    return used_;
  }

  const std::vector<FakeCard>& cards_;
  uint32_t recordBytes_;
  std::byte* buffer_ = nullptr;
  size_t used_ = 0;
};

}  // namespace tarvik::test
