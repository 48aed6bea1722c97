#include "net/icmp.h"

#include "platform/system_library_win32.h"

namespace tarvik {
namespace {

class Win32IcmpLibrary final : public IcmpLibrary {
 public:
  Handle IcmpCreateFile() override {
    // The newest Windows has no ICMP.DLL; iphlpapi.dll exports the same three functions there.
    if (!IsLoaded() && !LoadFrom(L"ICMP.DLL") && !LoadFrom(L"iphlpapi.dll")) return 0;
    return CreatedHandle(std::bit_cast<Handle>(createFile_()));
  }
  uint32_t IcmpSendEcho(Handle handle, uint32_t address, const void* requestData, uint16_t requestSize,
                        const IpOptionInformation* requestOptions, void* reply, uint32_t replySize,
                        uint32_t timeout) override {
    if (!IsLoaded()) {
      ::SetLastError(ERROR_MOD_NOT_FOUND);
      return 0;
    }
    // The library does not write to the request and its options, although they are not declared const.
    return sendEcho_(std::bit_cast<HANDLE>(handle), address, const_cast<void*>(requestData), requestSize,
                     const_cast<IpOptionInformation*>(requestOptions), reply, replySize, timeout);
  }
  int32_t IcmpCloseHandle(Handle handle) override {
    return !IsLoaded() ? FALSE : closeHandle_(std::bit_cast<HANDLE>(handle));
  }
  uint32_t GetLastError() override { return ::GetLastError(); }

 private:
  using CreateFileFunction = HANDLE(WINAPI*)();
  using SendEchoFunction = DWORD(WINAPI*)(HANDLE, ULONG, void*, WORD, void*, void*, DWORD, DWORD);
  using CloseHandleFunction = BOOL(WINAPI*)(HANDLE);

  bool IsLoaded() const { return createFile_ != nullptr && sendEcho_ != nullptr && closeHandle_ != nullptr; }
  bool LoadFrom(const wchar_t* name) {
    library_.Load(name);
    createFile_ = library_.Find<CreateFileFunction>("IcmpCreateFile");
    sendEcho_ = library_.Find<SendEchoFunction>("IcmpSendEcho");
    closeHandle_ = library_.Find<CloseHandleFunction>("IcmpCloseHandle");
    return IsLoaded();
  }

  SystemLibrary library_;
  CreateFileFunction createFile_ = nullptr;
  SendEchoFunction sendEcho_ = nullptr;
  CloseHandleFunction closeHandle_ = nullptr;
};

}  // namespace

std::unique_ptr<IcmpLibrary> MakeIcmpLibrary() { return std::make_unique<Win32IcmpLibrary>(); }

}  // namespace tarvik
