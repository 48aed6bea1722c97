#include "platform/machine_registry.h"

#include "platform/registry_win32.h"

namespace tarvik {
namespace {

class Win32MachineRegistry final : public MachineRegistry {
 public:
  std::optional<std::wstring> Read(const std::wstring& key, const std::wstring& name) override {
    return ReadRegistryText(HKEY_LOCAL_MACHINE, key, name);
  }
};

}  // namespace

std::unique_ptr<MachineRegistry> MakeMachineRegistry() { return std::make_unique<Win32MachineRegistry>(); }

}  // namespace tarvik
