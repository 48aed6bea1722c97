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

/// SOCKET_ADDRESS
struct SocketAddress {
  const void* lpSockaddr = nullptr;
  int32_t iSockaddrLength = 0;
};
static_assert(sizeof(SocketAddress) == 2 * sizeof(void*));

/// IP_ADAPTER_UNICAST_ADDRESS: one address of a card. Windows XP's records end before OnLinkPrefixLength.
struct alignas(8) IpAdapterUnicastAddress {
  uint32_t Length = 0;  ///< size of this record
  uint32_t Flags = 0;
  const IpAdapterUnicastAddress* Next = nullptr;
  SocketAddress Address;
  uint32_t PrefixOrigin = 0;
  uint32_t SuffixOrigin = 0;
  uint32_t DadState = 0;
  uint32_t ValidLifetime = 0;
  uint32_t PreferredLifetime = 0;
  uint32_t LeaseLifetime = 0;
  uint8_t OnLinkPrefixLength = 0;  ///< number of leading one bits of the mask
};
static_assert(sizeof(IpAdapterUnicastAddress) == (sizeof(void*) == 4 ? 48 : 64));
static_assert(offsetof(IpAdapterUnicastAddress, Address) == 8 + sizeof(void*));
static_assert(offsetof(IpAdapterUnicastAddress, OnLinkPrefixLength) == (sizeof(void*) == 4 ? 44 : 56));

/// IP_ADAPTER_GATEWAY_ADDRESS: one gateway of a card.
struct alignas(8) IpAdapterGatewayAddress {
  uint32_t Length = 0;  ///< size of this record
  uint32_t Reserved = 0;
  const IpAdapterGatewayAddress* Next = nullptr;
  SocketAddress Address;
};
static_assert(sizeof(IpAdapterGatewayAddress) == (sizeof(void*) == 4 ? 24 : 32));
static_assert(offsetof(IpAdapterGatewayAddress, Address) == 8 + sizeof(void*));

/// IP_ADAPTER_ADDRESSES up to the last member that is read: one card. The library's records are longer;
/// those of Windows XP end after FirstPrefix.
struct alignas(8) IpAdapterAddresses {
  uint32_t Length = 0;  ///< size of the library's record
  uint32_t IfIndex = 0;
  const IpAdapterAddresses* Next = nullptr;
  const char* AdapterName = nullptr;
  const IpAdapterUnicastAddress* FirstUnicastAddress = nullptr;
  const void* FirstAnycastAddress = nullptr;
  const void* FirstMulticastAddress = nullptr;
  const void* FirstDnsServerAddress = nullptr;
  const char16_t* DnsSuffix = nullptr;
  const char16_t* Description = nullptr;
  const char16_t* FriendlyName = nullptr;
  uint8_t PhysicalAddress[8] = {};
  uint32_t PhysicalAddressLength = 0;
  uint32_t Flags = 0;
  uint32_t Mtu = 0;
  uint32_t IfType = 0;      ///< one of kEthernet, ...
  uint32_t OperStatus = 0;  ///< one of kStatusUp, ...
  uint32_t Ipv6IfIndex = 0;
  uint32_t ZoneIndices[16] = {};
  const void* FirstPrefix = nullptr;
  uint64_t TransmitLinkSpeed = 0;
  uint64_t ReceiveLinkSpeed = 0;
  const void* FirstWinsServerAddress = nullptr;
  const IpAdapterGatewayAddress* FirstGatewayAddress = nullptr;

  static constexpr uint32_t kEthernet = 6;
  static constexpr uint32_t kPointToPoint = 23;
  static constexpr uint32_t kLoopback = 24;
  static constexpr uint32_t kProprietaryVirtual = 53;
  static constexpr uint32_t kWirelessLan = 71;
  static constexpr uint32_t kTunnel = 131;

  static constexpr uint32_t kStatusUp = 1;
  static constexpr uint32_t kStatusDown = 2;
  static constexpr uint32_t kStatusUnknown = 4;
  static constexpr uint32_t kStatusNotPresent = 6;
  static constexpr uint32_t kStatusLowerLayerDown = 7;
};
static_assert(sizeof(IpAdapterAddresses) == (sizeof(void*) == 4 ? 168 : 216));
static_assert(offsetof(IpAdapterAddresses, FirstUnicastAddress) == (sizeof(void*) == 4 ? 16 : 24));
static_assert(offsetof(IpAdapterAddresses, FriendlyName) == (sizeof(void*) == 4 ? 40 : 72));
static_assert(offsetof(IpAdapterAddresses, IfType) == (sizeof(void*) == 4 ? 64 : 100));
static_assert(offsetof(IpAdapterAddresses, FirstPrefix) == (sizeof(void*) == 4 ? 140 : 176));
static_assert(offsetof(IpAdapterAddresses, FirstGatewayAddress) == (sizeof(void*) == 4 ? 164 : 208));

/// MIB_IPNET_ROW2: what the PC knows about another device on one of its subnets.
struct alignas(8) MibIpNetRow2 {
  uint16_t Family = 0;  ///< 2 = IPv4. This and the next three members are the row's SOCKADDR_INET.
  uint16_t Port = 0;
  uint32_t Address = 0;  ///< IPv4, in network byte order
  uint32_t RestOfAddress[5] = {};
  uint32_t InterfaceIndex = 0;
  uint64_t InterfaceLuid = 0;
  uint8_t PhysicalAddress[32] = {};
  uint32_t PhysicalAddressLength = 0;  ///< 0 = not known
  uint32_t State = 0;                  ///< one of kUnreachable, ...
  uint32_t Flags = 0;
  uint32_t ReachabilityTime = 0;

  static constexpr uint32_t kUnreachable = 0;  ///< it does not answer the question for its physical address
  static constexpr uint32_t kIncomplete = 1;   ///< it was asked for its physical address
  static constexpr uint32_t kProbe = 2;        ///< it is asked again
  static constexpr uint32_t kDelay = 3;        ///< it will soon be asked again
  static constexpr uint32_t kStale = 4;        ///< it has not answered for some time
  static constexpr uint32_t kReachable = 5;    ///< it answered a few tens of seconds ago or later
  static constexpr uint32_t kPermanent = 6;    ///< entered by a user, never asked
};
static_assert(sizeof(MibIpNetRow2) == 88);
static_assert(offsetof(MibIpNetRow2, PhysicalAddress) == 40 && offsetof(MibIpNetRow2, State) == 76);

/// MIB_IPNET_TABLE2. `NumEntries` rows follow, of which this declares the first.
struct MibIpNetTable2 {
  uint32_t NumEntries = 0;
  MibIpNetRow2 Table[1];
};
static_assert(offsetof(MibIpNetTable2, Table) == 8);

/// The IP helper library. Each call returns kSuccess or an error code; also when this PC lacks the library,
/// or its library lacks the call.
class IpHelper {
 public:
  static constexpr uint32_t kSuccess = 0;
  static constexpr uint32_t kBufferOverflow = 111;  ///< ERROR_BUFFER_OVERFLOW

  static constexpr uint32_t kFamilyInternet = 2;  ///< AF_INET
  static constexpr uint32_t kSkipAnycast = 0x02;
  static constexpr uint32_t kSkipMulticast = 0x04;
  static constexpr uint32_t kSkipDnsServer = 0x08;
  static constexpr uint32_t kIncludeGateways = 0x80;

  virtual ~IpHelper() = default;

  /// Fills the buffer of `*size` bytes with a chain of adapter records whose links point into it. Returns
  /// kBufferOverflow and the needed size when the buffer is too small, and another error code on failure,
  /// also when the PC has no adapters or lacks this library.
  virtual uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) = 0;

  /// The index of the card through which Windows sends to the address, which is in network byte order.
  virtual uint32_t GetBestInterface(uint32_t address, uint32_t* index) = 0;

  /// Fills the buffer of `*size` bytes with a chain of IpAdapterAddresses, the first one at its start, whose
  /// pointers point into it. Returns kBufferOverflow and the needed size when the buffer is too small.
  virtual uint32_t GetAdaptersAddresses(uint32_t family, uint32_t flags, void* reserved, void* buffer,
                                        uint32_t* size) = 0;

  /// The devices that the PC knows on its own subnets. The table belongs to the library until FreeMibTable.
  virtual uint32_t GetIpNetTable2(uint16_t family, const MibIpNetTable2** table) = 0;
  virtual void FreeMibTable(const void* table) = 0;
};

/// Windows' own IP helper, loaded at the first call.
std::unique_ptr<IpHelper> MakeIpHelper();

}  // namespace tarvik
