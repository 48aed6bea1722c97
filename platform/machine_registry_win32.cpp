#include "platform/machine_registry_win32.h"

#include "platform/registry_win32.h"

namespace tarvik {

std::optional<std::wstring> Win32MachineRegistry::Read(const std::wstring& key, const std::wstring& name) {
  return ReadRegistryText(HKEY_LOCAL_MACHINE, key, name);
}

}  // namespace tarvik
