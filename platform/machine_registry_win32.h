#pragma once

#include "platform/machine_registry.h"

namespace tarvik {

/// The registry of this PC.
class Win32MachineRegistry final : public MachineRegistry {
 public:
  std::optional<std::wstring> Read(const std::wstring& key, const std::wstring& name) override;
};

}  // namespace tarvik
