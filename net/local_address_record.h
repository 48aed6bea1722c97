#pragma once

#include <string>
#include <vector>

namespace tarvik {

/// Never one of the PC's local addresses here, whatever the source reports.
inline constexpr wchar_t kLoopback[] = L"127.0.0.1";

/// One local IPv4 address of the PC. All texts are dotted addresses as the source reported them.
struct LocalAddressRecord {
  std::wstring IpAddress;
  std::wstring SubnetMask;
  std::vector<std::wstring> Gateways;
};

}  // namespace tarvik
