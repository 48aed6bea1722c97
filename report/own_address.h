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

/// False for what Windows reports where there is no address or no gateway.
bool IsRealAddress(std::wstring_view address);

/// True for a host name or address that means this PC.
bool IsThisPc(std::wstring_view host);

/// The address of the PC that matters for the target: the same one, otherwise one on its subnet, otherwise
/// the first with a mask. Null if no address fits.
const OwnAddress* OwnAddressFor(const PcFacts& pc, std::wstring_view target);

/// The address whose mask is so narrow that the target is outside of its subnet, although usually both would
/// be on one network. Null if no address fits.
const OwnAddress* TooNarrowOwnAddress(const PcFacts& pc, std::wstring_view target);

/// The address of the PC that the findings are about: one with a mask that looks too narrow, otherwise the
/// one whose gateway was tried last or cannot be used, otherwise OwnAddressFor. Null if no address fits.
const OwnAddress* DecisiveOwnAddress(const Facts& facts);

/// How many of the PC's addresses are on the target's subnet.
int OwnAddressesOnSubnet(const PcFacts& pc, std::wstring_view target);

/// The card that should lead to the target. That is one on its subnet, even if its link is down and Windows
/// therefore takes another way; otherwise the one that Windows names; otherwise, when no link is up, the only
/// card that has one. Virtual cards often pass for real ones, so of several none is named. Null if no card
/// fits.
const PcCard* CardOf(const WayToTarget& way, std::wstring_view target);

}  // namespace tarvik::report
