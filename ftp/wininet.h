#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

// Calling convention of the functions that the library calls back.
#ifdef _WIN32
#define TARVIK_CALLBACK __stdcall
#else
#define TARVIK_CALLBACK
#endif

namespace tarvik {

/// FILETIME: 100-nanosecond steps since the start of 1601, in two halves.
struct FileTime {
  uint32_t dwLowDateTime = 0;
  uint32_t dwHighDateTime = 0;
};
static_assert(sizeof(FileTime) == 8 && offsetof(FileTime, dwHighDateTime) == 4);

/// WIN32_FIND_DATAA: one entry of a directory.
struct FindData {
  uint32_t dwFileAttributes = 0;
  FileTime ftCreationTime;
  FileTime ftLastAccessTime;
  FileTime ftLastWriteTime;
  uint32_t nFileSizeHigh = 0;
  uint32_t nFileSizeLow = 0;
  uint32_t dwReserved0 = 0;
  uint32_t dwReserved1 = 0;
  char cFileName[260] = {};
  char cAlternateFileName[14] = {};
};
static_assert(sizeof(FindData) == 320 && alignof(FindData) == 4);
static_assert(offsetof(FindData, ftCreationTime) == 4 && offsetof(FindData, ftLastAccessTime) == 12);
static_assert(offsetof(FindData, ftLastWriteTime) == 20);
static_assert(offsetof(FindData, nFileSizeHigh) == 28 && offsetof(FindData, nFileSizeLow) == 32);
static_assert(offsetof(FindData, dwReserved0) == 36 && offsetof(FindData, dwReserved1) == 40);
static_assert(offsetof(FindData, cFileName) == 44 && offsetof(FindData, cAlternateFileName) == 304);

/// Wininet.dll. Texts are ANSI. Unless stated otherwise, a result other than 0 means success. Every call but
/// InternetCloseHandle and GetLastError throws RuntimeError when the library is missing.
class Wininet {
 public:
  using Handle = std::intptr_t;  ///< 0 = none
  using StatusCallback = void(TARVIK_CALLBACK*)(Handle, uintptr_t context, uint32_t status, void* information,
                                                uint32_t length);

  virtual ~Wininet() = default;

  /// A session; 0 when it cannot be opened.
  virtual Handle InternetOpenA(const char* agent, uint32_t accessType, const char* proxy,
                               const char* proxyBypass, uint32_t flags) = 0;

  /// A connection; 0 when the server refuses or does not answer. `user` and `password` may be null.
  virtual Handle InternetConnectA(Handle session, const char* host, uint16_t port, const char* user,
                                  const char* password, uint32_t service, uint32_t flags,
                                  uintptr_t context) = 0;

  /// Returns the callback that was registered before.
  virtual StatusCallback InternetSetStatusCallback(Handle handle, StatusCallback callback) = 0;

  /// `length`: in, size of the buffer in bytes; out, length of the text, or the size needed when the buffer
  /// is too small.
  virtual int32_t FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) = 0;

  virtual int32_t FtpSetCurrentDirectoryA(Handle connection, const char* directory) = 0;

  /// A search, with the first entry in `found`; 0 when nothing was found.
  virtual Handle FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found, uint32_t flags,
                                   uintptr_t context) = 0;

  /// Also 0 after the last entry.
  virtual int32_t InternetFindNextFileA(Handle search, FindData* found) = 0;

  /// The server's latest reply. `length` as in FtpGetCurrentDirectoryA.
  virtual int32_t InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) = 0;

  virtual int32_t InternetCloseHandle(Handle handle) = 0;

  virtual int32_t FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile,
                              int32_t failIfExists, uint32_t attributes, uint32_t flags,
                              uintptr_t context) = 0;

  virtual int32_t FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile,
                              uint32_t flags, uintptr_t context) = 0;

  virtual int32_t FtpDeleteFileA(Handle connection, const char* file) = 0;
  virtual int32_t FtpRenameFileA(Handle connection, const char* existing, const char* newName) = 0;
  virtual int32_t FtpCreateDirectoryA(Handle connection, const char* directory) = 0;
  virtual int32_t FtpRemoveDirectoryA(Handle connection, const char* directory) = 0;

  /// Windows error code of the latest of these calls that failed.
  virtual uint32_t GetLastError() = 0;
};

/// Windows' own Wininet.dll, loaded at the first call: most runs of the program never need it.
std::unique_ptr<Wininet> MakeWininet();

}  // namespace tarvik
