#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// ObryConfIO.dll, the product family's configuration library (stdcall). Every call except Available throws
/// RuntimeError when the library or the call is missing.
class ConfigurationLibrary {
 public:
  virtual ~ConfigurationLibrary() = default;

  /// False when the library is missing or cannot be loaded.
  virtual bool Available() = 0;
  virtual int32_t Initialize() = 0;
  /// The family's language, as a Windows locale id.
  virtual int32_t GetLanguage() = 0;
  virtual int32_t Terminate() = 0;
  /// Writes the common data folder into `buffer` of `length` bytes, NUL-terminated, in the system code page.
  /// 0 = success.
  virtual int32_t GetCommonDataFolder2(char* buffer, int32_t length) = 0;
};

/// The ObryConfIO.dll on this PC, loaded by the first call.
std::unique_ptr<ConfigurationLibrary> MakeConfigurationLibrary();

}  // namespace tarvik
