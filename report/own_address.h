#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "report/facts.h"

namespace tarvik::report {

/// The 32-bit number of a dotted address, first octet highest; nothing for any other text.
std::optional<uint32_t> AddressNumber(std::wstring_view dotted);

/// True when `target` is on the subnet of the address. Never for an address without a mask.
bool IsOnSubnet(const OwnAddress& own, std::wstring_view target);

/// The address of the PC that matters for the target: the same one, otherwise one on its subnet, otherwise
/// the first with a mask. Null when there is none.
const OwnAddress* OwnAddressFor(const PcFacts& pc, std::wstring_view target);

/// How many of the PC's addresses are on the target's subnet.
int OwnAddressesOnSubnet(const PcFacts& pc, std::wstring_view target);

/// The card that should lead to the target. That is one on its subnet, even if its link is down and Windows
/// therefore takes another way; otherwise the one that Windows names; otherwise, when no link is up, the one
/// whose cable is out. Null when there is none.
const PcCard* CardOf(const WayToTarget& way, std::wstring_view target);

}  // namespace tarvik::report
