#pragma once

#include <string>
#include <vector>

namespace tarvik {

/// One local IPv4 address of the PC. All texts are dotted addresses as the source reported them.
struct LocalAddressRecord {
  std::wstring IpAddress;
  std::wstring SubnetMask;
  std::vector<std::wstring> Gateways;
};

}  // namespace tarvik
