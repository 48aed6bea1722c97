#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "net/ipconfig_text.h"

// What ipconfig printed: any bytes, any length of line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto list = tarvik::ParseIpconfigText({reinterpret_cast<const char*>(data), size});
  for (const auto& record : list)
    if (record.IpAddress.empty() || record.Gateways.size() > 1) std::abort();
  return 0;
}
