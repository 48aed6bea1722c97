#include "net/local_configuration.h"

#include "net/gateways.h"
#include "net/interface_list.h"
#include "net/ipconfig_command.h"

namespace tarvik {

bool GetOsKind(System& system, int16_t& kind) {
  kind = kUnsupportedOs;
  OsVersionRecord version;
  if (!system.GetVersionExA(version)) return false;
  if (version.platformId == kPlatformWindows9x) kind = kWindows9x;
  if (version.platformId == kPlatformNt && version.majorVersion == 4) kind = kWindowsNt4;
  if (version.platformId == kPlatformNt && version.majorVersion > 4) kind = kWindowsNtLater;
  return kind != kUnsupportedOs;
}

bool GetIpConfiguration(const report::CheckContext& context, const NetLibraries& libraries,
                        std::vector<LocalAddressRecord>& list) {
  int16_t kind = kUnsupportedOs;
  if (!GetOsKind(libraries.system, kind)) return false;
  if (kind == kWindowsNt4) return GetIPConfig(context, libraries, list);
  if (!GetInterfaceList(libraries.winsock, list)) return false;
  if (FillGateways(libraries.ipHelper, list)) return true;
  list.assign(1, {});
  return false;
}

}  // namespace tarvik
