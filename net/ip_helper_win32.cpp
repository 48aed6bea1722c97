#include "net/ip_helper_win32.h"

namespace tarvik {

uint32_t Win32IpHelper::GetAdaptersInfo(void* buffer, uint32_t* size) {
  if (getAdaptersInfo_ == nullptr && library_.Load(L"iphlpapi.dll"))
    getAdaptersInfo_ = library_.Find<GetAdaptersInfoFunction>("GetAdaptersInfo");
  if (getAdaptersInfo_ == nullptr) return ERROR_NOT_SUPPORTED;
  ULONG bytes = *size;
  const ULONG result = getAdaptersInfo_(buffer, &bytes);
  *size = bytes;
  return result;
}

}  // namespace tarvik
