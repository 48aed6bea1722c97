#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "net/local_address_record.h"

namespace tarvik {

/// True when the line contains both the key and a ":"; `value` is then the text after the first ":", without
/// surrounding spaces. Otherwise `value` is empty.
bool GetValueAfterColon(std::wstring_view line, std::wstring_view key, std::wstring& value);

/// The addresses, masks and gateways in the English output of Windows NT 4.0's ipconfig. Empty values and the
/// loopback address are skipped.
std::vector<LocalAddressRecord> ParseIpconfigText(std::string_view text);

}  // namespace tarvik
