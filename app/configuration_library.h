#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// ObryConfIO.dll, the family's configuration library (stdcall). A call throws RuntimeError when the
/// library is not on this PC.
class ConfigurationLibrary {
 public:
  virtual ~ConfigurationLibrary() = default;

  /// False when the library cannot be loaded at all.
  virtual bool Available() = 0;
  virtual int32_t Initialize() = 0;
  /// The family's language as a Windows locale id.
  virtual int32_t GetLanguage() = 0;
  virtual int32_t Terminate() = 0;
  /// Writes the common data folder, NUL-terminated, in the system's code page. 0 = success.
  virtual int32_t GetCommonDataFolder2(char* buffer, int32_t length) = 0;
};

/// ObryConfIO.dll of this PC, loaded at the first call.
std::unique_ptr<ConfigurationLibrary> MakeConfigurationLibrary();

}  // namespace tarvik
