#pragma once

#include <string>
#include <vector>

namespace tarvik {

/// Never listed as a local address, even if the source reports it.
inline constexpr wchar_t kLoopback[] = L"127.0.0.1";

/// One local IPv4 address of the PC. The texts are dotted addresses as the source reports them.
struct LocalAddressRecord {
  std::wstring IpAddress;
  std::wstring SubnetMask;
  std::vector<std::wstring> Gateways;
};

}  // namespace tarvik
