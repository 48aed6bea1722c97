#include "platform/os_version.h"

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

static_assert(sizeof(OsVersionRecord) == sizeof(OSVERSIONINFOA));

class Win32OsVersion final : public OsVersion {
 public:
  bool GetVersionExA(OsVersionRecord& record) override {
    return ::GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&record)) != 0;
  }
};

}  // namespace

std::unique_ptr<OsVersion> MakeOsVersion() { return std::make_unique<Win32OsVersion>(); }

}  // namespace tarvik
