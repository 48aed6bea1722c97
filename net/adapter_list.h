#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "net/ip_helper.h"
#include "report/pc_card.h"

namespace tarvik {

/// One IPv4 address of a card. Both numbers are in network byte order.
struct AdapterAddress {
  uint32_t address = 0;
  uint32_t mask = 0;  ///< 0 = not known
};

/// A card with all of its IPv4 addresses; the card itself names one of them, at first the first.
struct Adapter {
  report::PcCard card;
  std::vector<AdapterAddress> addresses;
};

/// Makes this the address that the card names.
void NameAddress(report::PcCard& card, const AdapterAddress& address);

/// The cards in `buffer`, which GetAdaptersAddresses filled, in their order, without the loopback. Reads
/// nothing outside the buffer: a chain ends at a pointer that leads outside, and after 64 links.
std::vector<Adapter> ParseAdapters(std::span<const std::byte> buffer);

/// Gets the cards from the IP helper. Empty when it does not return them.
std::vector<Adapter> ReadAdapters(IpHelper& ipHelper);

}  // namespace tarvik
