#include "net/adapter_list.h"

#include <cstring>
#include <span>
#include <vector>

#include "net/way_to_target.h"
#include "tests/fakes/card_chain.h"
#include "tests/fuzz/fuzzer.h"

namespace {

/// An IP helper that answers with these bytes, whatever was asked.
class BytesIpHelper final : public tarvik::IpHelper {
 public:
  explicit BytesIpHelper(std::span<const std::byte> bytes) : bytes_(bytes) {}

  uint32_t GetAdaptersInfo(void*, uint32_t*) override { return 50; }
  uint32_t GetBestInterface(uint32_t, uint32_t* index) override {
    *index = 7;
    return kSuccess;
  }
  uint32_t GetAdaptersAddresses(uint32_t, uint32_t, void*, void* buffer, uint32_t* size) override {
    if (*size != bytes_.size()) {
      *size = static_cast<uint32_t>(bytes_.size());
      return kBufferOverflow;
    }
    if (bytes_.empty()) return kSuccess;
    std::memcpy(buffer, bytes_.data(), bytes_.size());
    Move(static_cast<std::byte*>(buffer));
    return kSuccess;
  }
  uint32_t GetIpNetTable2(uint16_t, const tarvik::MibIpNetTable2**) override { return 50; }
  void FreeMibTable(const void*) override {}

 private:
  /// Makes the pointers into the bytes point into the copy.
  void Move(std::byte* copy) const {
    const auto from = reinterpret_cast<std::uintptr_t>(bytes_.data());
    for (size_t at = 0; at + sizeof(std::uintptr_t) <= bytes_.size(); at += 4) {
      std::uintptr_t pointer = 0;
      std::memcpy(&pointer, copy + at, sizeof pointer);
      if (pointer < from || pointer - from > bytes_.size()) continue;
      pointer = pointer - from + reinterpret_cast<std::uintptr_t>(copy);
      std::memcpy(copy + at, &pointer, sizeof pointer);
    }
  }

  std::span<const std::byte> bytes_;
};

}  // namespace

// A list of two cards in which bytes were changed. Four bytes per change: its place in units of four bytes
// (two bytes), what it is (0 = a number, 1 = a pointer into the list, 2 = the end of the list), and its
// value.
TARVIK_FUZZER(net_adapter_list) {
  using namespace tarvik;
  static const std::vector<test::FakeCard> kCards{
      {u"Ethernet", 7, {{"192.168.1.10"}, {"10.0.0.5", 8}}, {"192.168.1.1", "192.168.1.2"}},
      {u"Wi-Fi", 8, {{"192.168.1.11"}}, {}, IpAdapterAddresses::kWirelessLan}};
  test::CardChain chain(kCards);
  std::vector<std::byte> buffer(chain.Size());
  chain.Write(buffer.data());
  for (; size >= 4 && buffer.size() > sizeof(std::uintptr_t); data += 4, size -= 4) {
    const size_t place =
        (data[0] | static_cast<size_t>(data[1]) << 8U) * 4 % (buffer.size() - sizeof(std::uintptr_t));
    if (data[2] == 0) {
      buffer[place] = std::byte{data[3]};
    } else if (data[2] == 1) {
      const std::uintptr_t pointer = reinterpret_cast<std::uintptr_t>(buffer.data()) + size_t{data[3]} * 8;
      std::memcpy(buffer.data() + place, &pointer, sizeof pointer);
    } else if (data[2] == 2) {
      buffer.resize(buffer.size() - data[3] % buffer.size());
    }
  }
  BytesIpHelper ipHelper(buffer);
  const report::WayToTarget way = FindWayToTarget(ipHelper, test::AddressNumber("192.168.1.100"));
  test::Require(way.cards.size() <= 64);
  for (const report::PcCard& card : way.cards)
    test::Require(card.name.size() <= 256 && card.gateways.size() <= 64);
}
