#include <cstdlib>
#include <string_view>

#include "net/ipconfig_text.h"
#include "tests/fuzz/fuzzer.h"

// Any output of ipconfig.
TARVIK_FUZZER(net_ipconfig_text) {
  const auto list = tarvik::ParseIpconfigText({reinterpret_cast<const char*>(data), size});
  for (const auto& record : list)
    if (record.IpAddress.empty() || record.Gateways.size() > 1) std::abort();
}
