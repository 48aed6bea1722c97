#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "net/gateways.h"

// A chain of adapters: any bytes, with links that mostly lead somewhere into them. The first byte is the
// number of links; three bytes each tell where a link stands and where, from the start, it leads.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const size_t links = data[0];
  if (size < 1 + links * 3) return 0;
  const auto bytes = std::as_bytes(std::span(data, size)).subspan(1 + links * 3);
  // Repeated, so that small inputs already make several records.
  std::vector<std::byte> buffer;
  if (!bytes.empty())
    while (buffer.size() < 4 * sizeof(tarvik::IpAdapterInfo))
      buffer.insert(buffer.end(), bytes.begin(), bytes.end());
  for (size_t i = 0; i < links && buffer.size() > sizeof(void*); ++i) {
    const uint8_t* const link = data + 1 + i * 3;
    const size_t place = link[0] * sizeof(void*) % (buffer.size() - sizeof(void*));
    const std::uintptr_t target =
        reinterpret_cast<std::uintptr_t>(buffer.data()) + (link[1] | static_cast<size_t>(link[2]) << 8U);
    std::memcpy(buffer.data() + place, &target, sizeof target);
  }
  std::vector<tarvik::LocalAddressRecord> list{{L"", L"", {}}, {L"1", L"", {}}};
  tarvik::AddGateways(buffer, list);
  return 0;
}
