#pragma once

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>

#include "net/icmp.h"
#include "net/ip_helper.h"
#include "net/winsock.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

class FailingWinsock final : public Failing<Winsock> {
 public:
  using Failing::Failing;

  int WSAStartup(uint16_t versionRequested, WsaData& data) override {
    const int way = WayToFail("WSAStartup", 4);
    const int result = library_.WSAStartup(versionRequested, data);
    startupFailed_ = way == 1 || way == 2;
    if (!startupFailed_) ++sessions;
    if (way == 1) return FailWith(10093);
    if (way == 2) return 10091;
    if (way == 3) data.wVersion = 0;
    if (way == 4) data.iMaxSockets = 0;
    return result;
  }
  int WSACleanup() override {
    // The Ping check calls this even after a failed WSAStartup, which starts no session.
    if (!startupFailed_) --sessions;
    startupFailed_ = false;
    const int way = WayToFail("WSACleanup", 1);
    const int result = library_.WSACleanup();
    return way == 1 ? FailWith(10050) : result;
  }
  int WSAGetLastError() override {
    if (plan_.WayToFail("WSAGetLastError", 1) == 1) return 0;
    return error_ != 0 ? error_ : library_.WSAGetLastError();
  }

  int gethostname(char* name, int nameLength) override {
    return WayToFail("gethostname", 1) == 1 ? FailWith(10050) : library_.gethostname(name, nameLength);
  }
  const HostEntry* gethostbyname(const char* name) override {
    const int way = WayToFail("gethostbyname", 4);
    const HostEntry* const found = library_.gethostbyname(name);
    if (way == 0 || found == nullptr) return found;
    FailWith(11001 + way);
    if (way == 1) return nullptr;
    lie_ = *found;
    if (way == 2) lie_.h_addr_list = nullptr;
    if (way == 3) lie_.h_addr_list = &noAddress_;
    if (way == 4) lie_.h_length = -4;
    return &lie_;
  }
  uint32_t inet_addr(const char* text) override {
    return WayToFail("inet_addr", 1) == 1 ? 0xFFFFFFFF : library_.inet_addr(text);
  }
  const char* inet_ntoa(uint32_t address) override {
    return WayToFail("inet_ntoa", 1) == 1 ? nullptr : library_.inet_ntoa(address);
  }

  Socket WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo, uint32_t group,
                    uint32_t flags) override {
    if (WayToFail("WSASocketA", 1) == 1) {
      FailWith(10024);
      return kInvalidSocket;
    }
    return sockets.Opened(library_.WSASocketA(addressFamily, type, protocol, protocolInfo, group, flags));
  }
  int WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out, uint32_t outSize,
               uint32_t* bytesReturned, void* overlapped, void* completionRoutine) override {
    const int way = WayToFail("WSAIoctl", 5);
    if (way == 1) return FailWith(10050);
    if (way == 2) return FailWith(kBufferTooSmall);
    const int result = library_.WSAIoctl(socket, controlCode, in, inSize, out, outSize, bytesReturned,
                                         overlapped, completionRoutine);
    if (way == 3) *bytesReturned = 0;
    if (way == 4) *bytesReturned = 75;
    if (way == 5) *bytesReturned = std::numeric_limits<uint32_t>::max();
    return result;
  }
  int ioctlsocket(Socket socket, uint32_t command, uint32_t* argument) override {
    return WayToFail("ioctlsocket", 1) == 1 ? FailWith(10022)
                                            : library_.ioctlsocket(socket, command, argument);
  }
  int connect(Socket socket, const InternetAddress& address) override {
    const int way = WayToFail("connect", 2);
    if (way == 1) return FailWith(10051);
    return way == 2 ? 0 : library_.connect(socket, address);
  }
  int select(SocketSet* read, SocketSet* write, SocketSet* except, const TimeValue& timeout) override {
    const int way = WayToFail("select", 3);
    if (way == 1) return FailWith(10050);
    const int result = library_.select(read, write, except, timeout);
    if (way == 2) except->fd_count = write->fd_count = 0;
    if (way == 3) except->fd_count = 1;
    return way == 0 ? result : 1;
  }
  int getsockopt(Socket socket, int level, int option, void* value, int* length) override {
    return WayToFail("getsockopt", 1) == 1 ? FailWith(10042)
                                           : library_.getsockopt(socket, level, option, value, length);
  }
  int closesocket(Socket socket) override {
    sockets.Closed(socket);
    const int way = WayToFail("closesocket", 1);
    const int result = library_.closesocket(socket);
    return way == 1 ? FailWith(10036) : result;
  }

  int sessions = 0;  ///< started and not ended
  HandleLedger<Socket> sockets;

 private:
  int FailWith(int error) {
    error_ = error;
    return kSocketError;
  }

  /// WSAGetLastError reports the library's own error unless this call is made to fail.
  int WayToFail(const char* name, int ways) {
    error_ = 0;
    return plan_.WayToFail(name, ways);
  }

  int error_ = 0;
  bool startupFailed_ = false;
  HostEntry lie_;
  char* noAddress_ = nullptr;
};

class FailingIcmp final : public Failing<IcmpLibrary> {
 public:
  using Failing::Failing;

  Handle IcmpCreateFile() override {
    const int way = plan_.WayToFail("IcmpCreateFile", 2);
    if (way == 1) return 0;
    return handles.Opened(way == 2 ? -1 : library_.IcmpCreateFile());
  }
  uint32_t IcmpSendEcho(Handle handle, uint32_t address, const void* requestData, uint16_t requestSize,
                        const IpOptionInformation* requestOptions, void* reply, uint32_t replySize,
                        uint32_t timeout) override {
    const int way = plan_.WayToFail("IcmpSendEcho", 5);
    error_.reset();
    if (way == 1 || way == 2) {
      error_ = way == 1 ? 11010 : 11050;
      return 0;
    }
    if (way == 4) return 1;  // writes nothing
    if (way == 5) {
      std::memset(reply, 0xFF, replySize);
      return std::numeric_limits<uint32_t>::max();
    }
    const uint32_t replies = library_.IcmpSendEcho(handle, address, requestData, requestSize, requestOptions,
                                                   reply, replySize, timeout);
    if (way == 3) {
      IcmpEchoReply record;
      std::memcpy(&record, reply, sizeof record);
      record.Status = 11003;
      std::memcpy(reply, &record, sizeof record);
      return 1;
    }
    return replies;
  }
  int32_t IcmpCloseHandle(Handle handle) override {
    handles.Closed(handle);
    const int way = plan_.WayToFail("IcmpCloseHandle", 1);
    const int32_t result = library_.IcmpCloseHandle(handle);
    return way == 1 ? 0 : result;
  }
  uint32_t GetLastError() override {
    if (plan_.WayToFail("GetLastError of ICMP", 1) == 1) return 0;
    return error_.value_or(library_.GetLastError());
  }

  HandleLedger<Handle> handles;

 private:
  std::optional<uint32_t> error_;
};

class FailingIpHelper final : public Failing<IpHelper> {
 public:
  using Failing::Failing;

  uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) override {
    constexpr uint32_t kNoData = 232;
    const uint32_t room = *size;
    switch (plan_.WayToFail("GetAdaptersInfo", 6)) {
      case 1:
        return kNoData;
      case 2:
        return kNotSupported;
      case 3:  // writes nothing
        return kSuccess;
      case 4:
        *size = 0;
        return kBufferOverflow;
      case 5:
        *size = std::numeric_limits<uint32_t>::max();
        return kBufferOverflow;
      case 6:
        if (buffer != nullptr) std::memset(buffer, 0xFF, room);
        return kSuccess;
      default:
        return library_.GetAdaptersInfo(buffer, size);
    }
  }
  uint32_t GetBestInterface(uint32_t address, uint32_t* index) override {
    const int way = plan_.WayToFail("GetBestInterface", 2);
    if (way == 1) return kNotSupported;
    const uint32_t result = library_.GetBestInterface(address, index);
    if (way == 2) *index = std::numeric_limits<uint32_t>::max();
    return way == 2 ? kSuccess : result;
  }
  uint32_t GetAdaptersAddresses(uint32_t family, uint32_t flags, void* reserved, void* buffer,
                                uint32_t* size) override {
    const uint32_t room = *size;
    switch (plan_.WayToFail("GetAdaptersAddresses", 5)) {
      case 1:
        return kNotSupported;
      case 2:  // writes nothing
        return kSuccess;
      case 3:
        *size = 0;
        return kBufferOverflow;
      case 4:
        *size = std::numeric_limits<uint32_t>::max();
        return kBufferOverflow;
      case 5:
        std::memset(buffer, 0xFF, room);
        return kSuccess;
      default:
        return library_.GetAdaptersAddresses(family, flags, reserved, buffer, size);
    }
  }
  uint32_t GetIpNetTable2(uint16_t family, const MibIpNetTable2** table) override {
    const int way = plan_.WayToFail("GetIpNetTable2", 2);
    if (way == 1) return kNotSupported;
    if (way == 2) return kSuccess;  // without a table
    return library_.GetIpNetTable2(family, table);
  }
  void FreeMibTable(const void* table) override { library_.FreeMibTable(table); }

 private:
  static constexpr uint32_t kNotSupported = 50;
};

}  // namespace tarvik::test
