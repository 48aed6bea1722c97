#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "net/local_address_record.h"

namespace tarvik {

/// True when the line has both the key and a ":"; the value is then the text after the first ":", without
/// the blanks around it. Otherwise the value is empty.
bool GetValueAfterColon(std::wstring_view line, std::wstring_view key, std::wstring& value);

/// The addresses, masks and gateways in what the old system's ipconfig prints in English. An empty value
/// adds nothing, nor does the loopback address.
std::vector<LocalAddressRecord> ParseIpconfigText(std::string_view text);

}  // namespace tarvik
