#pragma once

#include <cstdint>
#include <vector>

#include "net/local_address_record.h"
#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// The kinds of Windows by which the way to the configuration differs.
inline constexpr int16_t kUnsupportedOs = -1;
inline constexpr int16_t kWindows9x = 0;
inline constexpr int16_t kWindowsNt4 = 1;
inline constexpr int16_t kWindowsNtLater = 2;

/// False, with kUnsupportedOs, for every other system and when the version cannot be queried.
bool GetOsKind(System& system, int16_t& kind);

/// The PC's own IPv4 addresses with their masks and gateways, in the order in which the system reports them,
/// without the loopback address. False when they cannot be had.
bool GetIpConfiguration(const report::CheckContext& context, const NetLibraries& libraries,
                        std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
