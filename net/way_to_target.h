#pragma once

#include <cstdint>

#include "net/ip_helper.h"
#include "report/pc_card.h"

namespace tarvik {

/// Asks Windows which card leads to the target, an address in network byte order, and for all cards. The card
/// is the one that Windows sends through, unless that one is outside the target's subnet and another card is
/// on it whose link is down: then that other card. A card with an address on the target's subnet names that
/// address. Sends nothing. Whatever Windows does not answer stays empty.
report::WayToTarget FindWayToTarget(IpHelper& ipHelper, uint32_t targetAddress);

}  // namespace tarvik
