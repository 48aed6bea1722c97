#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "net/ip_helper.h"
#include "net/local_address_record.h"

namespace tarvik {

/// Adds to each record the gateways of the adapters that have its address. `adapters` is the buffer that
/// GetAdaptersInfo filled: adapter records chained by pointers into it, the first one at its start. Reads
/// nothing outside the buffer. A chain ends at a link that points outside or to a record that was already
/// read, and after 64 links.
void AddGateways(std::span<const std::byte> adapters, std::vector<LocalAddressRecord>& list);

/// Gets the adapters from the IP helper and adds their gateways. True, with the list unchanged, when there
/// are no adapters or no IP helper. False when the helper reports a size but then cannot return the adapters,
/// even after three tries while their number grows.
bool FillGateways(IpHelper& ipHelper, std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
