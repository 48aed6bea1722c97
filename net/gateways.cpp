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
constexpr uint32_t kLargestAnswer = 1024 * 1024;

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
    for (const void* place = first; Read(place, link); place = link.Next)
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
  for (const void* place = adapters.data(); answer.Read(place, adapter); place = adapter.Next) {
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
  if (size > kLargestAnswer) return false;
  std::vector<std::byte> buffer(size);
  if (ipHelper.GetAdaptersInfo(buffer.data(), &size) != IpHelper::kSuccess) return false;
  AddGateways(buffer, list);
  return true;
}

}  // namespace tarvik
