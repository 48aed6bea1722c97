#include "net/icmp_win32.h"

namespace tarvik {

bool Win32IcmpLibrary::LoadFrom(const wchar_t* name) {
  library_.Load(name);
  createFile_ = library_.Find<CreateFileFunction>("IcmpCreateFile");
  sendEcho_ = library_.Find<SendEchoFunction>("IcmpSendEcho");
  closeHandle_ = library_.Find<CloseHandleFunction>("IcmpCloseHandle");
  return IsLoaded();
}

bool Win32IcmpLibrary::IsLoaded() const {
  return createFile_ != nullptr && sendEcho_ != nullptr && closeHandle_ != nullptr;
}

IcmpLibrary::Handle Win32IcmpLibrary::IcmpCreateFile() {
  // ICMP.DLL is gone from the newest Windows, where iphlpapi has the same three calls.
  if (!IsLoaded() && !LoadFrom(L"ICMP.DLL") && !LoadFrom(L"iphlpapi.dll")) return 0;
  return CreatedHandle(std::bit_cast<Handle>(createFile_()));
}

uint32_t Win32IcmpLibrary::IcmpSendEcho(Handle handle, uint32_t address, const void* requestData,
                                        uint16_t requestSize, const IpOptionInformation* requestOptions,
                                        void* reply, uint32_t replySize, uint32_t timeout) {
  if (!IsLoaded()) {
    ::SetLastError(ERROR_MOD_NOT_FOUND);
    return 0;
  }
  // The library only reads the request and its options, though its declaration does not say so.
  return sendEcho_(std::bit_cast<HANDLE>(handle), address, const_cast<void*>(requestData), requestSize,
                   const_cast<IpOptionInformation*>(requestOptions), reply, replySize, timeout);
}

int32_t Win32IcmpLibrary::IcmpCloseHandle(Handle handle) {
  return !IsLoaded() ? FALSE : closeHandle_(std::bit_cast<HANDLE>(handle));
}

uint32_t Win32IcmpLibrary::GetLastError() { return ::GetLastError(); }

}  // namespace tarvik
