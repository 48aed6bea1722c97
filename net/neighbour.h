#pragma once

#include <cstdint>

#include "net/ip_helper.h"
#include "report/pc_card.h"

namespace tarvik {

/// Whether a device on one of the PC's own subnets has the address, which is in network byte order. Windows
/// asks for the device's physical address before it sends the first echo; this only reads what came of it,
/// and sends nothing. Present: the device has answered that question, perhaps long before: Windows believes
/// an answer for up to 45 seconds. Absent: it has not answered. Unknown: Windows did not ask, as for
/// addresses beyond a gateway, or remembers only an older answer; also when the table cannot be read.
report::Neighbour LookForNeighbour(IpHelper& ipHelper, uint32_t address);

/// What two looks prove about the time between them. Present only if the device answered in between: at the
/// first look it was not present yet.
report::Neighbour Between(report::Neighbour before, report::Neighbour after);

}  // namespace tarvik
