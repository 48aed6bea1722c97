#pragma once

#include <memory>
#include <optional>
#include <string>

namespace tarvik {

/// What the system's own programs left in the registry (advapi32).
class MachineRegistry {
 public:
  virtual ~MachineRegistry() = default;

  /// The text value `name` of the key below HKEY_LOCAL_MACHINE, its environment variables replaced; nothing
  /// when it is missing, is no text or cannot be read.
  virtual std::optional<std::wstring> Read(const std::wstring& key, const std::wstring& name) = 0;
};

/// The registry of this PC.
std::unique_ptr<MachineRegistry> MakeMachineRegistry();

}  // namespace tarvik
