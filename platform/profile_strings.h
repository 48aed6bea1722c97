#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvik {

/// Profile (INI) files, read through kernel32.
class ProfileStrings {
 public:
  virtual ~ProfileStrings() = default;

  /// GetPrivateProfileStringA with an empty default: copies the value, cut to fit and NUL-terminated, into
  /// `buffer` and returns its length without the NUL. `path` may have any characters.
  virtual uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                            uint32_t bufferSize, const std::wstring& path) = 0;
};

/// Reads the profile files of this PC.
std::unique_ptr<ProfileStrings> MakeProfileStrings();

}  // namespace tarvik
