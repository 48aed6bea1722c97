#include "net/ip_helper.h"

#include "platform/system_library_win32.h"

namespace tarvik {
namespace {

class Win32IpHelper final : public IpHelper {
 public:
  uint32_t GetAdaptersInfo(void* buffer, uint32_t* size) override {
    if (getAdaptersInfo_ == nullptr && library_.Load(L"iphlpapi.dll"))
      getAdaptersInfo_ = library_.Find<GetAdaptersInfoFunction>("GetAdaptersInfo");
    if (getAdaptersInfo_ == nullptr) return ERROR_NOT_SUPPORTED;
    ULONG bytes = *size;
    const ULONG result = getAdaptersInfo_(buffer, &bytes);
    *size = bytes;
    return result;
  }

 private:
  using GetAdaptersInfoFunction = ULONG(WINAPI*)(void*, ULONG*);

  SystemLibrary library_;
  GetAdaptersInfoFunction getAdaptersInfo_ = nullptr;
};

}  // namespace

std::unique_ptr<IpHelper> MakeIpHelper() { return std::make_unique<Win32IpHelper>(); }

}  // namespace tarvik
