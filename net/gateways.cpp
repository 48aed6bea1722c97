#include "net/gateways.h"

#include <cstring>
#include <set>
#include <string>
#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/text.h"

namespace tarvik {
namespace {

/// An adapter needs less than a kilobyte, so a larger size is not credible.
constexpr uint32_t kMaxAdapterBytes = 1024 * 1024;

/// The list can grow between asking for its size and reading it, for example when a card is plugged in.
constexpr int kMaxTries = 3;

/// Bounds the work on a corrupt buffer; no PC has this many adapters, or addresses on one adapter.
constexpr int kMaxLinks = 64;

/// Reads records through pointers into the buffer, each at most once.
class AdapterBuffer {
 public:
  explicit AdapterBuffer(std::span<const std::byte> bytes) : bytes_(bytes) {}

  /// False when the record is not entirely inside the buffer or was already read.
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
  AdapterBuffer buffer(adapters);
  IpAdapterInfo adapter;
  const void* place = adapters.data();
  for (int i = 0; i < kMaxLinks && buffer.Read(place, adapter); ++i, place = adapter.Next) {
    const auto* const bytes = static_cast<const std::byte*>(place);
    const auto addresses = buffer.ReadAddresses(bytes + offsetof(IpAdapterInfo, IpAddressList));
    const auto gateways = buffer.ReadAddresses(bytes + offsetof(IpAdapterInfo, GatewayList));
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
    if (size > kMaxAdapterBytes) return false;
    buffer.assign(size, std::byte{0});
    result = ipHelper.GetAdaptersInfo(buffer.data(), &size);
  }
  if (result != IpHelper::kSuccess) return false;
  AddGateways(buffer, list);
  return true;
}

}  // namespace tarvik
