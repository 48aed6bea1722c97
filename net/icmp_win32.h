#pragma once

#include "net/icmp.h"
#include "platform/system_library_win32.h"

namespace tarvik {

/// The system's own ICMP helper, loaded on first use.
class Win32IcmpLibrary final : public IcmpLibrary {
 public:
  Handle IcmpCreateFile() override;
  uint32_t IcmpSendEcho(Handle handle, uint32_t address, const void* requestData, uint16_t requestSize,
                        const IpOptionInformation* requestOptions, void* reply, uint32_t replySize,
                        uint32_t timeout) override;
  int32_t IcmpCloseHandle(Handle handle) override;
  uint32_t GetLastError() override;

 private:
  using CreateFileFunction = HANDLE(WINAPI*)();
  using SendEchoFunction = DWORD(WINAPI*)(HANDLE, ULONG, void*, WORD, void*, void*, DWORD, DWORD);
  using CloseHandleFunction = BOOL(WINAPI*)(HANDLE);

  bool IsLoaded() const;
  bool LoadFrom(const wchar_t* name);

  SystemLibrary library_;
  CreateFileFunction createFile_ = nullptr;
  SendEchoFunction sendEcho_ = nullptr;
  CloseHandleFunction closeHandle_ = nullptr;
};

}  // namespace tarvik
