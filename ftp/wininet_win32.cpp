#include "ftp/wininet_win32.h"

#include "platform/error_line_win32.h"
#include "platform/library_error.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr wchar_t kName[] = L"Wininet.dll";

}  // namespace

static_assert(sizeof(FindData) == sizeof(WIN32_FIND_DATAA));

FARPROC Win32Wininet::Find(const char* name) {
  if (!loaded_) loaded_ = library_.Load(kName);
  if (!loaded_) throw LibraryError::CannotBeLoaded(kName, ErrorLine(::GetLastError(), kName));
  const auto found = library_.Find<FARPROC>(name);
  if (found == nullptr) throw LibraryError::DoesNotExport(kName, WidenAscii(name));
  return found;
}

template <typename Result, typename... Arguments>
Result Win32Wininet::Call(const char* name, Arguments... arguments) {
  return std::bit_cast<Result(WINAPI*)(Arguments...)>(Find(name))(arguments...);
}

Wininet::Handle Win32Wininet::InternetOpenA(const char* agent, uint32_t accessType, const char* proxy,
                                            const char* proxyBypass, uint32_t flags) {
  return Call<Handle>("InternetOpenA", agent, accessType, proxy, proxyBypass, flags);
}

Wininet::Handle Win32Wininet::InternetConnectA(Handle session, const char* host, uint16_t port,
                                               const char* user, const char* password, uint32_t service,
                                               uint32_t flags, uintptr_t context) {
  return Call<Handle>("InternetConnectA", session, host, port, user, password, service, flags, context);
}

Wininet::StatusCallback Win32Wininet::InternetSetStatusCallback(Handle handle, StatusCallback callback) {
  return Call<StatusCallback>("InternetSetStatusCallback", handle, callback);
}

int32_t Win32Wininet::FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) {
  return Call<int32_t>("FtpGetCurrentDirectoryA", connection, buffer, length);
}

int32_t Win32Wininet::FtpSetCurrentDirectoryA(Handle connection, const char* directory) {
  return Call<int32_t>("FtpSetCurrentDirectoryA", connection, directory);
}

Wininet::Handle Win32Wininet::FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found,
                                                uint32_t flags, uintptr_t context) {
  return Call<Handle>("FtpFindFirstFileA", connection, pattern, found, flags, context);
}

int32_t Win32Wininet::InternetFindNextFileA(Handle search, FindData* found) {
  return Call<int32_t>("InternetFindNextFileA", search, found);
}

int32_t Win32Wininet::InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) {
  return Call<int32_t>("InternetGetLastResponseInfoA", error, buffer, length);
}

int32_t Win32Wininet::InternetCloseHandle(Handle handle) {
  // Owners call this while an error passes, so it must not raise one of its own.
  const auto close = library_.Find<BOOL(WINAPI*)(Handle)>("InternetCloseHandle");
  return close == nullptr ? FALSE : close(handle);
}

int32_t Win32Wininet::FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile,
                                  int32_t failIfExists, uint32_t attributes, uint32_t flags,
                                  uintptr_t context) {
  return Call<int32_t>("FtpGetFileA", connection, remoteFile, newFile, failIfExists, attributes, flags,
                       context);
}

int32_t Win32Wininet::FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile,
                                  uint32_t flags, uintptr_t context) {
  return Call<int32_t>("FtpPutFileA", connection, localFile, newRemoteFile, flags, context);
}

int32_t Win32Wininet::FtpDeleteFileA(Handle connection, const char* file) {
  return Call<int32_t>("FtpDeleteFileA", connection, file);
}

int32_t Win32Wininet::FtpRenameFileA(Handle connection, const char* existing, const char* newName) {
  return Call<int32_t>("FtpRenameFileA", connection, existing, newName);
}

int32_t Win32Wininet::FtpCreateDirectoryA(Handle connection, const char* directory) {
  return Call<int32_t>("FtpCreateDirectoryA", connection, directory);
}

int32_t Win32Wininet::FtpRemoveDirectoryA(Handle connection, const char* directory) {
  return Call<int32_t>("FtpRemoveDirectoryA", connection, directory);
}

}  // namespace tarvik
