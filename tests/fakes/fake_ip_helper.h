#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "net/ip_helper.h"
#include "tests/fakes/card_chain.h"

namespace tarvik::test {

/// Writes adapter records into a buffer as GetAdaptersInfo does: the adapters in full length, then their
/// second and later addresses, linked by pointers into the buffer.
class AdapterChain {
 public:
  struct Adapter {
    std::vector<std::string> addresses;
    std::vector<std::string> gateways;
  };

  /// sizeof(IP_ADAPTER_INFO), of which the product reads only a part.
  static constexpr size_t kAdapterSize = sizeof(void*) == 4 ? 648 : 704;

  static size_t SizeOf(const std::vector<Adapter>& adapters) {
    size_t size = 0;
    for (const Adapter& adapter : adapters)
      size += kAdapterSize +
              (ExtraLinks(adapter.addresses) + ExtraLinks(adapter.gateways)) * sizeof(IpAddrString);
    return size;
  }

  /// The buffer must have SizeOf(adapters) bytes.
  static void Write(const std::vector<Adapter>& adapters, std::byte* buffer) {
    std::byte* free = buffer + adapters.size() * kAdapterSize;
    for (size_t i = 0; i < adapters.size(); ++i) {
      std::byte* const place = buffer + i * kAdapterSize;
      IpAdapterInfo info;
      if (i + 1 < adapters.size()) info.Next = reinterpret_cast<const IpAdapterInfo*>(place + kAdapterSize);
      info.IpAddressList = WriteList(adapters[i].addresses, free);
      info.GatewayList = WriteList(adapters[i].gateways, free);
      std::memset(place, 0, kAdapterSize);
      std::memcpy(place, &info, sizeof info);
    }
  }

 private:
  static size_t ExtraLinks(const std::vector<std::string>& texts) {
    return texts.empty() ? 0 : texts.size() - 1;
  }

  static IpAddrString Link(const std::string& text) {
    IpAddrString link;
    std::memcpy(link.IpAddress, text.data(), std::min(text.size(), sizeof link.IpAddress));
    return link;
  }

  // Returns the first link, which is part of the adapter record.
  static IpAddrString WriteList(const std::vector<std::string>& texts, std::byte*& free) {
    IpAddrString first = Link(texts.empty() ? std::string() : texts.front());
    for (size_t i = texts.size(); i > 1; --i) {
      IpAddrString link = Link(texts[i - 1]);
      link.Next = first.Next;
      std::memcpy(free, &link, sizeof link);
      first.Next = reinterpret_cast<const IpAddrString*>(free);
      free += sizeof link;
    }
    return first;
  }
};

/// An IP helper that reports the added adapters. By default it knows no cards and no neighbours.
class FakeIpHelper final : public IpHelper {
 public:
  void AddAdapter(std::vector<std::string> addresses, std::vector<std::string> gateways) {
    adapters.push_back({std::move(addresses), std::move(gateways)});
  }

  uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) override {
    ++calls;
    const auto needed = static_cast<uint32_t>(AdapterChain::SizeOf(adapters));
    if (buffer == nullptr) {
      *size = announcedSize.value_or(needed);
      return sizeResult.value_or(adapters.empty() ? kNoData : kBufferOverflow);
    }
    if (fillResult != kSuccess) return fillResult;
    if (growths > 0) {
      --growths;
      AddAdapter({"10.9.9.9"}, {});
      *size = static_cast<uint32_t>(AdapterChain::SizeOf(adapters));
      return kBufferOverflow;
    }
    if (*size < needed) {
      *size = needed;
      return kBufferOverflow;
    }
    AdapterChain::Write(adapters, static_cast<std::byte*>(buffer));
    return kSuccess;
  }

  uint32_t GetBestInterface(uint32_t address, uint32_t* index) override {
    if (bestAsked.size() < kMaxBestAsked) bestAsked.push_back(address);
    if (!bestInterface) return kNetworkUnreachable;
    *index = *bestInterface;
    return kSuccess;
  }

  uint32_t GetAdaptersAddresses(uint32_t family, uint32_t flags, void* reserved, void* buffer,
                                uint32_t* size) override {
    ++cardCalls;
    if (family != kFamilyInternet || (flags & kIncludeGateways) == 0 || reserved != nullptr) return 87;
    if (cardsResult != kSuccess) return cardsResult;
    if (cards.empty()) return kNoData;
    CardChain chain(cards);
    const auto needed = static_cast<uint32_t>(chain.Size());
    if (buffer == nullptr || *size < needed || cardGrowths > 0) {
      --cardGrowths;
      *size = std::max(needed, announcedCardSize.value_or(needed));
      return kBufferOverflow;
    }
    chain.Write(static_cast<std::byte*>(buffer));
    return kSuccess;
  }

  /// Adds a row to the neighbour table.
  void AddNeighbour(const std::string& dotted, uint32_t state, bool physicalAddressKnown = true) {
    MibIpNetRow2 row;
    row.Family = static_cast<uint16_t>(kFamilyInternet);
    row.Address = AddressNumber(dotted);
    row.State = state;
    row.PhysicalAddressLength = 6;
    row.PhysicalAddress[5] = physicalAddressKnown ? 1 : 0;
    neighbours.push_back(row);
  }
  uint32_t GetIpNetTable2(uint16_t family, const MibIpNetTable2** table) override {
    if (family != kFamilyInternet) return 87;
    if (neighboursResult != kSuccess) return neighboursResult;
    // As documented, there is no table without rows.
    if (neighbours.empty()) return kNotFound;
    constexpr size_t kHeader = offsetof(MibIpNetTable2, Table);
    auto& bytes = neighbourTables.emplace_back(kHeader / 8 + neighbours.size() * sizeof(MibIpNetRow2) / 8);
    bytes[0] = neighbours.size();
    std::memcpy(bytes.data() + kHeader / 8, neighbours.data(), neighbours.size() * sizeof(MibIpNetRow2));
    *table = reinterpret_cast<const MibIpNetTable2*>(bytes.data());
    return kSuccess;
  }
  void FreeMibTable(const void* table) override {
    std::erase_if(neighbourTables, [table](const auto& bytes) { return bytes.data() == table; });
  }

  static constexpr uint32_t kNoData = 232;
  static constexpr uint32_t kNotFound = 1168;
  static constexpr uint32_t kNetworkUnreachable = 1231;

  std::vector<AdapterChain::Adapter> adapters;
  std::optional<uint32_t> sizeResult;     ///< replaces the result of the size query
  std::optional<uint32_t> announcedSize;  ///< replaces the size that it reports
  uint32_t fillResult = kSuccess;
  int growths = 0;  ///< how many more times an adapter is added just before the list is read
  int calls = 0;

  std::optional<uint32_t> bestInterface;        ///< nothing = no card leads there
  static constexpr size_t kMaxBestAsked = 100;  ///< a test that runs for long must not grow
  std::vector<uint32_t> bestAsked;              ///< the addresses that GetBestInterface was asked for
  std::vector<FakeCard> cards;
  uint32_t cardsResult = kSuccess;
  std::optional<uint32_t> announcedCardSize;  ///< a larger size than needed
  int cardGrowths = 0;                        ///< how many more times the list is too long for the buffer
  int cardCalls = 0;
  std::vector<MibIpNetRow2> neighbours;
  uint32_t neighboursResult = kSuccess;
  std::vector<std::vector<uint64_t>> neighbourTables;  ///< not freed yet
};

}  // namespace tarvik::test
