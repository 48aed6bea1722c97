#pragma once

#include "ftp/wininet.h"
#include "platform/system_library_win32.h"

namespace tarvik {

/// The system's own Wininet.dll. Most runs of the program never need it, so it is loaded on first use.
class Win32Wininet final : public Wininet {
 public:
  Handle InternetOpenA(const char* agent, uint32_t accessType, const char* proxy, const char* proxyBypass,
                       uint32_t flags) override;
  Handle InternetConnectA(Handle session, const char* host, uint16_t port, const char* user,
                          const char* password, uint32_t service, uint32_t flags, uintptr_t context) override;
  StatusCallback InternetSetStatusCallback(Handle handle, StatusCallback callback) override;
  int32_t FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) override;
  int32_t FtpSetCurrentDirectoryA(Handle connection, const char* directory) override;
  Handle FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found, uint32_t flags,
                           uintptr_t context) override;
  int32_t InternetFindNextFileA(Handle search, FindData* found) override;
  int32_t InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) override;
  int32_t InternetCloseHandle(Handle handle) override;
  int32_t FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile, int32_t failIfExists,
                      uint32_t attributes, uint32_t flags, uintptr_t context) override;
  int32_t FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile, uint32_t flags,
                      uintptr_t context) override;
  int32_t FtpDeleteFileA(Handle connection, const char* file) override;
  int32_t FtpRenameFileA(Handle connection, const char* existing, const char* newName) override;
  int32_t FtpCreateDirectoryA(Handle connection, const char* directory) override;
  int32_t FtpRemoveDirectoryA(Handle connection, const char* directory) override;
  uint32_t GetLastError() override { return ::GetLastError(); }

 private:
  /// Calls the library's function of that name with its own types, which are those of the arguments here.
  template <typename Result, typename... Arguments>
  Result Call(const char* name, Arguments... arguments);

  FARPROC Find(const char* name);

  SystemLibrary library_;
  bool loaded_ = false;
};

}  // namespace tarvik
