#include "platform/os_version_win32.h"

#include "platform/windows_win32.h"

namespace tarvik {

static_assert(sizeof(OsVersionRecord) == sizeof(OSVERSIONINFOA));

bool Win32OsVersion::GetVersionExA(OsVersionRecord& record) {
  return ::GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&record)) != 0;
}

}  // namespace tarvik
