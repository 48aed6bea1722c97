#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "net/ip_helper.h"
#include "net/local_address_record.h"

namespace tarvik {

/// Adds to each record the gateways of the adapters that have its address. `adapters` is what the IP helper
/// left: adapter records chained by pointers into it, the first at its start. Nothing outside is read; a
/// link that leads outside, or to a record that was read before, ends its chain. So does the 64th of a list.
void AddGateways(std::span<const std::byte> adapters, std::vector<LocalAddressRecord>& list);

/// Asks the IP helper for the adapters and adds their gateways. A helper that has none to tell of leaves
/// the list as it is; false when it announced them and then could not deliver, in three tries when the list
/// grows meanwhile.
bool FillGateways(IpHelper& ipHelper, std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
