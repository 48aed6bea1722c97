#include "net/ip_helper.h"

#include "platform/system_library_win32.h"

// Declares what netioapi.h needs, so it must be first.
#include <ws2tcpip.h>

#include <iphlpapi.h>
#include <netioapi.h>

namespace tarvik {
namespace {

static_assert(sizeof(IpAdapterUnicastAddress) == sizeof(IP_ADAPTER_UNICAST_ADDRESS_LH));
static_assert(offsetof(IpAdapterUnicastAddress, OnLinkPrefixLength) ==
              offsetof(IP_ADAPTER_UNICAST_ADDRESS_LH, OnLinkPrefixLength));
static_assert(sizeof(IpAdapterGatewayAddress) == sizeof(IP_ADAPTER_GATEWAY_ADDRESS_LH));
static_assert(offsetof(IpAdapterAddresses, IfType) == offsetof(IP_ADAPTER_ADDRESSES_LH, IfType));
static_assert(offsetof(IpAdapterAddresses, FirstGatewayAddress) ==
              offsetof(IP_ADAPTER_ADDRESSES_LH, FirstGatewayAddress));
static_assert(sizeof(MibIpNetRow2) == sizeof(MIB_IPNET_ROW2));
static_assert(offsetof(MibIpNetRow2, PhysicalAddress) == offsetof(MIB_IPNET_ROW2, PhysicalAddress));
static_assert(offsetof(MibIpNetRow2, State) == offsetof(MIB_IPNET_ROW2, State));
static_assert(offsetof(MibIpNetTable2, Table) == offsetof(MIB_IPNET_TABLE2, Table));
static_assert(MibIpNetRow2::kReachable == NlnsReachable && MibIpNetRow2::kIncomplete == NlnsIncomplete);
static_assert(IpHelper::kFamilyInternet == AF_INET);
static_assert(IpHelper::kSkipAnycast == GAA_FLAG_SKIP_ANYCAST &&
              IpHelper::kSkipMulticast == GAA_FLAG_SKIP_MULTICAST &&
              IpHelper::kSkipDnsServer == GAA_FLAG_SKIP_DNS_SERVER &&
              IpHelper::kIncludeGateways == GAA_FLAG_INCLUDE_GATEWAYS);

class Win32IpHelper final : public IpHelper {
 public:
  uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) override {
    if (!Find(getAdaptersInfo_, "GetAdaptersInfo")) return ERROR_NOT_SUPPORTED;
    ULONG bytes = *size;
    const ULONG result = getAdaptersInfo_(buffer, &bytes);
    *size = bytes;
    return result;
  }
  uint32_t GetBestInterface(uint32_t address, uint32_t* index) override {
    if (!Find(getBestInterface_, "GetBestInterface")) return ERROR_NOT_SUPPORTED;
    DWORD found = 0;
    const DWORD result = getBestInterface_(address, &found);
    *index = found;
    return result;
  }
  uint32_t GetAdaptersAddresses(uint32_t family, uint32_t flags, void* reserved, void* buffer,
                                uint32_t* size) override {
    if (!Find(getAdaptersAddresses_, "GetAdaptersAddresses")) return ERROR_NOT_SUPPORTED;
    ULONG bytes = *size;
    const ULONG result = getAdaptersAddresses_(family, flags, reserved, buffer, &bytes);
    *size = bytes;
    return result;
  }
  uint32_t GetIpNetTable2(uint16_t family, const MibIpNetTable2** table) override {
    // Without the call that frees the table, asking for it would leak.
    if (!Find(freeMibTable_, "FreeMibTable") || !Find(getIpNetTable2_, "GetIpNetTable2"))
      return ERROR_NOT_SUPPORTED;
    return static_cast<uint32_t>(getIpNetTable2_(family, table));
  }
  void FreeMibTable(const void* table) override {
    if (Find(freeMibTable_, "FreeMibTable")) freeMibTable_(table);
  }

 private:
  using GetAdaptersInfoFunction = ULONG(WINAPI*)(void*, ULONG*);
  using GetBestInterfaceFunction = DWORD(WINAPI*)(ULONG, DWORD*);
  using GetAdaptersAddressesFunction = ULONG(WINAPI*)(ULONG, ULONG, void*, void*, ULONG*);
  using GetIpNetTable2Function = LONG(WINAPI*)(USHORT, const MibIpNetTable2**);
  using FreeMibTableFunction = void(WINAPI*)(const void*);

  /// Finds the function at its first call. False if Windows does not have it.
  template <typename Function>
  bool Find(Function& function, const char* name) {
    if (!loaded_) loaded_ = library_.Load(L"iphlpapi.dll");
    if (function == nullptr) function = library_.Find<Function>(name);
    return function != nullptr;
  }

  SystemLibrary library_;
  bool loaded_ = false;
  GetAdaptersInfoFunction getAdaptersInfo_ = nullptr;
  GetBestInterfaceFunction getBestInterface_ = nullptr;
  GetAdaptersAddressesFunction getAdaptersAddresses_ = nullptr;
  GetIpNetTable2Function getIpNetTable2_ = nullptr;
  FreeMibTableFunction freeMibTable_ = nullptr;
};

}  // namespace

std::unique_ptr<IpHelper> MakeIpHelper() { return std::make_unique<Win32IpHelper>(); }

}  // namespace tarvik
