#pragma once

#include <cstring>
#include <limits>
#include <optional>

#include "ftp/wininet.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

class FailingWininet final : public Failing<Wininet> {
 public:
  using Failing::Failing;

  Handle InternetOpenA(const char* agent, uint32_t accessType, const char* proxy, const char* proxyBypass,
                       uint32_t flags) override {
    reply_ = "";
    return Fails("InternetOpenA") ? 0 : library_.InternetOpenA(agent, accessType, proxy, proxyBypass, flags);
  }
  Handle InternetConnectA(Handle session, const char* host, uint16_t port, const char* user,
                          const char* password, uint32_t service, uint32_t flags,
                          uintptr_t context) override {
    const int way = plan_.WayToFail("InternetConnectA", 3);
    error_.reset();
    if (way == 2) ThrowMissing("InternetConnectA");
    reply_ = way == 0 ? nullptr : way == 1 ? "" : "530 Login incorrect.";
    if (way != 0) return Fail(kConnectionAborted);
    return library_.InternetConnectA(session, host, port, user, password, service, flags, context);
  }
  StatusCallback InternetSetStatusCallback(Handle handle, StatusCallback callback) override {
    return Fails("InternetSetStatusCallback") ? nullptr
                                              : library_.InternetSetStatusCallback(handle, callback);
  }
  int32_t FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) override {
    return ReturnText("FtpGetCurrentDirectoryA", buffer, length,
                      [&] { return library_.FtpGetCurrentDirectoryA(connection, buffer, length); });
  }
  int32_t FtpSetCurrentDirectoryA(Handle connection, const char* directory) override {
    return Fails("FtpSetCurrentDirectoryA") ? 0 : library_.FtpSetCurrentDirectoryA(connection, directory);
  }
  Handle FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found, uint32_t flags,
                           uintptr_t context) override {
    return Fails("FtpFindFirstFileA")
               ? 0
               : library_.FtpFindFirstFileA(connection, pattern, found, flags, context);
  }
  int32_t InternetFindNextFileA(Handle search, FindData* found) override {
    const int way = plan_.WayToFail("InternetFindNextFileA", 4);
    error_.reset();
    if (way == 1) return Fail(kConnectionAborted);
    if (way == 2) ThrowMissing("InternetFindNextFileA");
    const int32_t result = library_.InternetFindNextFileA(search, found);
    if (way == 3 && result != 0) std::memset(found, 'x', sizeof *found);
    if (way == 4 && result != 0) *found = FindData();
    return result;
  }
  int32_t InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) override {
    return ReturnText("InternetGetLastResponseInfoA", buffer, length, [&] {
      if (reply_ == nullptr) return library_.InternetGetLastResponseInfoA(error, buffer, length);
      *length = static_cast<uint32_t>(std::strlen(reply_));
      std::memcpy(buffer, reply_, *length + 1);
      return 1;
    });
  }
  int32_t InternetCloseHandle(Handle handle) override {
    const int way = plan_.WayToFail("InternetCloseHandle", 1);
    const int32_t result = library_.InternetCloseHandle(handle);
    return way == 1 ? Fail(kConnectionAborted) : result;
  }
  int32_t FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile, int32_t failIfExists,
                      uint32_t attributes, uint32_t flags, uintptr_t context) override {
    return library_.FtpGetFileA(connection, remoteFile, newFile, failIfExists, attributes, flags, context);
  }
  int32_t FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile, uint32_t flags,
                      uintptr_t context) override {
    return library_.FtpPutFileA(connection, localFile, newRemoteFile, flags, context);
  }
  int32_t FtpDeleteFileA(Handle connection, const char* file) override {
    return library_.FtpDeleteFileA(connection, file);
  }
  int32_t FtpRenameFileA(Handle connection, const char* existing, const char* newName) override {
    return library_.FtpRenameFileA(connection, existing, newName);
  }
  int32_t FtpCreateDirectoryA(Handle connection, const char* directory) override {
    return library_.FtpCreateDirectoryA(connection, directory);
  }
  int32_t FtpRemoveDirectoryA(Handle connection, const char* directory) override {
    return library_.FtpRemoveDirectoryA(connection, directory);
  }
  uint32_t GetLastError() override {
    if (plan_.WayToFail("GetLastError of Wininet", 1) == 1) return 0;
    return error_.value_or(library_.GetLastError());
  }

 private:
  static constexpr uint32_t kConnectionAborted = 12030;
  static constexpr uint32_t kInsufficientBuffer = 122;

  int32_t Fail(uint32_t error) {
    error_ = error;
    return 0;
  }
  /// True when the call fails. Throws when it fails as a missing export.
  bool Fails(const char* call) {
    const int way = plan_.WayToFail(call, 2);
    error_.reset();
    if (way == 2) ThrowMissing(call);
    if (way == 1) error_ = kConnectionAborted;
    return way == 1;
  }
  template <typename Call>
  int32_t ReturnText(const char* name, char* buffer, uint32_t* length, Call call) {
    const uint32_t room = *length;
    error_.reset();
    switch (plan_.WayToFail(name, 5)) {
      case 1:
        return Fail(kConnectionAborted);
      case 2:
        *length = 0;
        return Fail(kInsufficientBuffer);
      case 3:
        std::memset(buffer, 'x', room);
        *length = std::numeric_limits<uint32_t>::max();
        return 1;
      case 4:  // writes nothing
        return 1;
      case 5:
        ThrowMissing(name);
      default:
        return call();
    }
  }

  std::optional<uint32_t> error_;
  const char* reply_ = nullptr;  ///< the reply to a failed connection; null = the library's own
};

}  // namespace tarvik::test
