#include "about/os_version_info.h"

#include "platform/text.h"

namespace tarvik {
namespace {

const wchar_t* NameOf(uint32_t platformId) {
  switch (platformId) {
    case kPlatformNt:
      return L"Windows NT";
    case kPlatformWindows9x:
      return L"Windows 95";
    default:
      return L"Win32";
  }
}

}  // namespace

std::wstring OsVersionInfo::GetVersionName() const {
  if (!known_) return {};
  return std::wstring(NameOf(record_.platformId)) + L" Running " + Decimal(record_.majorVersion) + L"." +
         Decimal(record_.minorVersion) + L"." + Decimal(record_.buildNumber);
}

bool OsVersionInfo::IsWin95() const { return known_ && record_.platformId == kPlatformWindows9x; }

bool OsVersionInfo::IsNt(uint32_t major, uint32_t minor) const {
  return known_ && record_.platformId == kPlatformNt && record_.majorVersion == major &&
         record_.minorVersion == minor;
}

}  // namespace tarvik
