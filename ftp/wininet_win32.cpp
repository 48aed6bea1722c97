#include "ftp/wininet.h"

#include "platform/error_line_win32.h"
#include "platform/library_error.h"
#include "platform/system_library_win32.h"
#include "platform/text.h"

namespace tarvik {
namespace {

static_assert(sizeof(FindData) == sizeof(WIN32_FIND_DATAA));

constexpr wchar_t kName[] = L"Wininet.dll";

class Win32Wininet final : public Wininet {
 public:
  Handle InternetOpenA(const char* agent, uint32_t accessType, const char* proxy, const char* proxyBypass,
                       uint32_t flags) override {
    return Call<Handle>("InternetOpenA", agent, accessType, proxy, proxyBypass, flags);
  }
  Handle InternetConnectA(Handle session, const char* host, uint16_t port, const char* user,
                          const char* password, uint32_t service, uint32_t flags,
                          uintptr_t context) override {
    return Call<Handle>("InternetConnectA", session, host, port, user, password, service, flags, context);
  }
  StatusCallback InternetSetStatusCallback(Handle handle, StatusCallback callback) override {
    return Call<StatusCallback>("InternetSetStatusCallback", handle, callback);
  }
  int32_t FtpGetCurrentDirectoryA(Handle connection, char* buffer, uint32_t* length) override {
    return Call<int32_t>("FtpGetCurrentDirectoryA", connection, buffer, length);
  }
  int32_t FtpSetCurrentDirectoryA(Handle connection, const char* directory) override {
    return Call<int32_t>("FtpSetCurrentDirectoryA", connection, directory);
  }
  Handle FtpFindFirstFileA(Handle connection, const char* pattern, FindData* found, uint32_t flags,
                           uintptr_t context) override {
    return Call<Handle>("FtpFindFirstFileA", connection, pattern, found, flags, context);
  }
  int32_t InternetFindNextFileA(Handle search, FindData* found) override {
    return Call<int32_t>("InternetFindNextFileA", search, found);
  }
  int32_t InternetGetLastResponseInfoA(uint32_t* error, char* buffer, uint32_t* length) override {
    return Call<int32_t>("InternetGetLastResponseInfoA", error, buffer, length);
  }
  int32_t InternetCloseHandle(Handle handle) override {
    // Called by destructors during stack unwinding, so it must not throw.
    const auto close = library_.Find<BOOL(WINAPI*)(Handle)>("InternetCloseHandle");
    return close == nullptr ? FALSE : close(handle);
  }
  int32_t FtpGetFileA(Handle connection, const char* remoteFile, const char* newFile, int32_t failIfExists,
                      uint32_t attributes, uint32_t flags, uintptr_t context) override {
    return Call<int32_t>("FtpGetFileA", connection, remoteFile, newFile, failIfExists, attributes, flags,
                         context);
  }
  int32_t FtpPutFileA(Handle connection, const char* localFile, const char* newRemoteFile, uint32_t flags,
                      uintptr_t context) override {
    return Call<int32_t>("FtpPutFileA", connection, localFile, newRemoteFile, flags, context);
  }
  int32_t FtpDeleteFileA(Handle connection, const char* file) override {
    return Call<int32_t>("FtpDeleteFileA", connection, file);
  }
  int32_t FtpRenameFileA(Handle connection, const char* existing, const char* newName) override {
    return Call<int32_t>("FtpRenameFileA", connection, existing, newName);
  }
  int32_t FtpCreateDirectoryA(Handle connection, const char* directory) override {
    return Call<int32_t>("FtpCreateDirectoryA", connection, directory);
  }
  int32_t FtpRemoveDirectoryA(Handle connection, const char* directory) override {
    return Call<int32_t>("FtpRemoveDirectoryA", connection, directory);
  }
  uint32_t GetLastError() override { return ::GetLastError(); }

 private:
  /// Calls the function of that name. The argument types here must be exactly those of the function.
  template <typename Result, typename... Arguments>
  Result Call(const char* name, Arguments... arguments) {
    return std::bit_cast<Result(WINAPI*)(Arguments...)>(Find(name))(arguments...);
  }

  FARPROC Find(const char* name) {
    if (!loaded_) loaded_ = library_.Load(kName);
    if (!loaded_) throw LibraryError::CannotBeLoaded(kName, ErrorLine(::GetLastError(), kName));
    const auto found = library_.Find<FARPROC>(name);
    if (found == nullptr) throw LibraryError::DoesNotExport(kName, WidenAscii(name));
    return found;
  }

  SystemLibrary library_;
  bool loaded_ = false;
};

}  // namespace

std::unique_ptr<Wininet> MakeWininet() { return std::make_unique<Win32Wininet>(); }

}  // namespace tarvik
