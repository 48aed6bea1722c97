#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// IP_OPTION_INFORMATION
struct IpOptionInformation {
  uint8_t Ttl = 0;
  uint8_t Tos = 0;
  uint8_t Flags = 0;
  uint8_t OptionsSize = 0;
  void* OptionsData = nullptr;
};
static_assert(sizeof(IpOptionInformation) == 2 * sizeof(void*));

/// ICMP_ECHO_REPLY. Addresses are in network byte order.
struct IcmpEchoReply {
  uint32_t Address = 0;        ///< who replied
  uint32_t Status = 0;         ///< 0 = the echo was returned, otherwise an IP_STATUS code from 11001
  uint32_t RoundTripTime = 0;  ///< milliseconds
  uint16_t DataSize = 0;
  uint16_t Reserved = 0;
  void* Data = nullptr;
  IpOptionInformation Options;
};
static_assert(sizeof(IcmpEchoReply) == (sizeof(void*) == 4 ? 28 : 40));
static_assert(offsetof(IcmpEchoReply, Status) == 4 && offsetof(IcmpEchoReply, RoundTripTime) == 8);
static_assert(offsetof(IcmpEchoReply, DataSize) == 12 && offsetof(IcmpEchoReply, Data) == 16);
static_assert(offsetof(IcmpEchoReply, Options) == (sizeof(void*) == 4 ? 20 : 24));

/// The ICMP helper library.
class IcmpLibrary {
 public:
  using Handle = std::intptr_t;

  virtual ~IcmpLibrary() = default;

  /// Converts the library's result to that of IcmpCreateFile below: the library's failure value is -1
  /// (INVALID_HANDLE_VALUE), not 0.
  static constexpr Handle CreatedHandle(Handle result) { return result == -1 ? 0 : result; }

  /// 0 on failure; GetLastError has the reason.
  virtual Handle IcmpCreateFile() = 0;

  /// Sends one echo request and waits up to `timeout` milliseconds for replies. Returns the number of reply
  /// records in `reply`; 0 = none, GetLastError has the reason.
  virtual uint32_t IcmpSendEcho(Handle handle, uint32_t address, const void* requestData,
                                uint16_t requestSize, const IpOptionInformation* requestOptions, void* reply,
                                uint32_t replySize, uint32_t timeout) = 0;

  /// 0 on failure.
  virtual int32_t IcmpCloseHandle(Handle handle) = 0;

  /// Windows error code of the latest of these calls that failed.
  virtual uint32_t GetLastError() = 0;
};

/// Windows' own ICMP helper, loaded at the first call.
std::unique_ptr<IcmpLibrary> MakeIcmpLibrary();

}  // namespace tarvik
