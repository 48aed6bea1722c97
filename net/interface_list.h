#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "net/local_address_record.h"
#include "net/winsock.h"

namespace tarvik {

/// The addresses and masks in an array of INTERFACE_INFO records (76 bytes each), in their order, without the
/// loopback address. An incomplete last record is skipped.
std::vector<LocalAddressRecord> ParseInterfaceList(std::span<const std::byte> entries);

/// Gets the PC's addresses from the socket library, at most ten interfaces. On failure returns false and
/// leaves one empty record in the list, so that a caller can still index it.
bool GetInterfaceList(Winsock& winsock, std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
