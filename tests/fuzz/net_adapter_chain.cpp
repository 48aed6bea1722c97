#include <cstring>
#include <span>
#include <vector>

#include "net/gateways.h"
#include "tests/fuzz/fuzzer.h"

namespace {

/// The target of a link, from its two bytes: an offset in the answer, or, if the second byte is 255 or 254, a
/// place close to the last one where a whole adapter or a whole address fits.
std::uintptr_t TargetOf(const uint8_t* bytes, const std::vector<std::byte>& buffer) {
  const auto begin = reinterpret_cast<std::uintptr_t>(buffer.data());
  const auto end = begin + buffer.size();
  const std::uintptr_t step = std::uintptr_t{bytes[0]} - 128;
  if (bytes[1] == 0xFF) return end - sizeof(tarvik::IpAdapterInfo) + step;
  if (bytes[1] == 0xFE) return end - sizeof(tarvik::IpAddrString) + step;
  return begin + (bytes[0] | static_cast<size_t>(bytes[1]) << 8U);
}

}  // namespace

// A chain of adapters of any bytes, with links into them. First byte: the number of links. Then three bytes
// per link: its place and its target.
TARVIK_FUZZER(net_adapter_chain) {
  if (size == 0) return;
  const size_t links = data[0];
  if (size < 1 + links * 3) return;
  const auto bytes = std::as_bytes(std::span(data, size)).subspan(1 + links * 3);
  // Repeated, so that even small inputs fill several records.
  std::vector<std::byte> repeated;
  if (!bytes.empty())
    while (repeated.size() < 4 * sizeof(tarvik::IpAdapterInfo))
      repeated.insert(repeated.end(), bytes.begin(), bytes.end());
  // A copy without spare capacity, so that the sanitizer sees every read beyond the end.
  std::vector<std::byte> buffer = repeated;
  for (size_t i = 0; i < links && buffer.size() > sizeof(void*); ++i) {
    const uint8_t* const link = data + 1 + i * 3;
    const size_t place = link[0] * sizeof(void*) % (buffer.size() - sizeof(void*));
    const std::uintptr_t target = TargetOf(link + 1, buffer);
    std::memcpy(buffer.data() + place, &target, sizeof target);
  }
  std::vector<tarvik::LocalAddressRecord> list{{L"", L"", {}}, {L"1", L"", {}}};
  tarvik::AddGateways(buffer, list);
}
