#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "net/local_address_record.h"
#include "net/winsock.h"

namespace tarvik {

/// The addresses and masks in the socket library's 76-byte interface entries, in their order, without the
/// loopback address. An entry that is not whole is left out.
std::vector<LocalAddressRecord> ParseInterfaceList(std::span<const std::byte> entries);

/// Asks the socket library for the PC's addresses; ten interfaces at most. On failure false, and the list
/// is one empty record so that a caller can still index it.
bool GetInterfaceList(Winsock& winsock, std::vector<LocalAddressRecord>& list);

}  // namespace tarvik
