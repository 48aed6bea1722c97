#include "net/gateways.h"

#include <cstring>
#include <set>
#include <string>
#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/text.h"

namespace tarvik {
namespace {

// An adapter takes less than a kilobyte. A size beyond this is no size of an honest answer.
constexpr uint32_t kMaxAnswerBytes = 1024 * 1024;

/// The list can grow between asking for its size and reading it, for example while a card is plugged in.
constexpr int kMaxTries = 3;

/// Bounds what a library that lies can make of a few bytes; no PC has as many adapters, or addresses on one.
constexpr int kMaxLinks = 64;

/// Reads records at native pointers into the answer, each place once.
class AdapterAnswer {
 public:
  explicit AdapterAnswer(std::span<const std::byte> bytes) : bytes_(bytes) {}

  /// False when the record does not lie wholly inside the answer, or was read before.
  template <typename Record>
  bool Read(const void* place, Record& record) {
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    const auto begin = reinterpret_cast<std::uintptr_t>(bytes_.data());
    if (address < begin || bytes_.size() < sizeof record || address - begin > bytes_.size() - sizeof record)
      return false;
    const size_t offset = address - begin;
    if (!seen_.insert(offset).second) return false;
    std::memcpy(&record, bytes_.data() + offset, sizeof record);
    return true;
  }

  std::vector<std::wstring> ReadAddresses(const void* first) {
    std::vector<std::wstring> addresses;
    IpAddrString link;
    const void* place = first;
    for (int i = 0; i < kMaxLinks && Read(place, link); ++i, place = link.Next)
      addresses.push_back(WidenAscii(TrimNull(std::string_view(link.IpAddress, sizeof link.IpAddress))));
    return addresses;
  }

 private:
  std::span<const std::byte> bytes_;
  std::set<size_t> seen_;
};

}  // namespace

void AddGateways(std::span<const std::byte> adapters, std::vector<LocalAddressRecord>& list) {
  AdapterAnswer answer(adapters);
  IpAdapterInfo adapter;
  const void* place = adapters.data();
  for (int i = 0; i < kMaxLinks && answer.Read(place, adapter); ++i, place = adapter.Next) {
    const auto* const bytes = static_cast<const std::byte*>(place);
    const auto addresses = answer.ReadAddresses(bytes + offsetof(IpAdapterInfo, IpAddressList));
    const auto gateways = answer.ReadAddresses(bytes + offsetof(IpAdapterInfo, GatewayList));
    for (const std::wstring& address : addresses)
      for (LocalAddressRecord& record : list)
        if (record.IpAddress == address)
          record.Gateways.insert(record.Gateways.end(), gateways.begin(), gateways.end());
  }
}

bool FillGateways(IpHelper& ipHelper, std::vector<LocalAddressRecord>& list) {
  uint32_t size = 0;
  if (ipHelper.GetAdaptersInfo(nullptr, &size) != IpHelper::kBufferOverflow) return true;
  std::vector<std::byte> buffer;
  uint32_t result = IpHelper::kBufferOverflow;
  for (int i = 0; i < kMaxTries && result == IpHelper::kBufferOverflow; ++i) {
    if (size > kMaxAnswerBytes) return false;
    buffer.assign(size, std::byte{0});
    result = ipHelper.GetAdaptersInfo(buffer.data(), &size);
  }
  if (result != IpHelper::kSuccess) return false;
  AddGateways(buffer, list);
  return true;
}

}  // namespace tarvik
