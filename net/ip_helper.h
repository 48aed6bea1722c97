#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// IP_ADDR_STRING: one link of an address list.
struct IpAddrString {
  const IpAddrString* Next = nullptr;
  char IpAddress[16] = {};
  char IpMask[16] = {};
  uint32_t Context = 0;
};
static_assert(sizeof(IpAddrString) == (sizeof(void*) == 4 ? 40 : 48));
static_assert(offsetof(IpAddrString, IpAddress) == sizeof(void*));

/// IP_ADAPTER_INFO up to the last member that is read; the library's records are longer.
struct IpAdapterInfo {
  const IpAdapterInfo* Next = nullptr;
  uint32_t ComboIndex = 0;
  char AdapterName[260] = {};
  char Description[132] = {};
  uint32_t AddressLength = 0;
  uint8_t Address[8] = {};
  uint32_t Index = 0;
  uint32_t Type = 0;
  uint32_t DhcpEnabled = 0;
  const IpAddrString* CurrentIpAddress = nullptr;
  IpAddrString IpAddressList;
  IpAddrString GatewayList;
};
static_assert(sizeof(IpAdapterInfo) == (sizeof(void*) == 4 ? 508 : 536));
static_assert(offsetof(IpAdapterInfo, AddressLength) == (sizeof(void*) == 4 ? 400 : 404));
static_assert(offsetof(IpAdapterInfo, CurrentIpAddress) == (sizeof(void*) == 4 ? 424 : 432));
static_assert(offsetof(IpAdapterInfo, IpAddressList) == (sizeof(void*) == 4 ? 428 : 440));
static_assert(offsetof(IpAdapterInfo, GatewayList) == (sizeof(void*) == 4 ? 468 : 488));

/// The IP helper library.
class IpHelper {
 public:
  static constexpr uint32_t kSuccess = 0;
  static constexpr uint32_t kBufferOverflow = 111;  ///< ERROR_BUFFER_OVERFLOW

  virtual ~IpHelper() = default;

  /// Fills the buffer of `*size` bytes with a chain of adapter records whose links point into it. Returns
  /// kBufferOverflow and the needed size when the buffer is too small, and another error code on failure,
  /// also when the PC has no adapters or lacks this library.
  virtual uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) = 0;
};

/// Windows' own IP helper, loaded at the first call.
std::unique_ptr<IpHelper> MakeIpHelper();

}  // namespace tarvik
