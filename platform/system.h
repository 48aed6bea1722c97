#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/os_version.h"

namespace tarvik {

/// What the program asks Windows about this PC and the user's regional settings.
class System {
 public:
  virtual ~System() = default;

  /// False when the version cannot be queried.
  virtual bool GetVersionExA(OsVersionRecord& record) = 0;

  /// GetPrivateProfileStringA with an empty default: copies the value, cut to fit and NUL-terminated, into
  /// `buffer` and returns its length without the NUL. `path` may have any characters.
  virtual uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                            uint32_t bufferSize, const std::wstring& path) = 0;

  /// The text value `name` of the key below HKEY_LOCAL_MACHINE, its environment variables replaced; nothing
  /// when it is missing, is not a text or cannot be read.
  virtual std::optional<std::wstring> ReadMachineRegistry(const std::wstring& key,
                                                          const std::wstring& name) = 0;

  /// LCMapString with LCMAP_SORTKEY: bytes that compare as their texts do in the user's locale, without
  /// regard to case. Comparing two texts costs as much as making a key, so a sort makes each key once.
  virtual std::string SortKey(std::wstring_view text) = 0;

  /// The present date and time in the user's general format: the short date, a space, the time.
  virtual std::wstring GeneralDateTime() = 0;
};

/// This PC: kernel32, its registry and its profile files.
std::unique_ptr<System> MakeSystem();

}  // namespace tarvik
