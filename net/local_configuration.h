#pragma once

#include <cstdint>
#include <vector>

#include "net/local_address_record.h"
#include "net/net_libraries.h"
#include "report/check_context.h"

namespace tarvik {

/// Kinds of Windows, which differ in how the configuration is read.
inline constexpr int16_t kUnsupportedOs = -1;
inline constexpr int16_t kWindows9x = 0;
inline constexpr int16_t kWindowsNt4 = 1;
inline constexpr int16_t kWindowsNtLater = 2;

/// Determines the kind. False, with kUnsupportedOs, for any other system and when the query fails.
bool GetOsKind(System& system, int16_t& kind);

/// The PC's own IPv4 addresses with their masks and gateways, in the order in which the system reports them,
/// without the loopback address. False when they cannot be read.
bool GetIpConfiguration(const report::CheckContext& context, const NetLibraries& libraries,
                        std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
