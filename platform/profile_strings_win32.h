#pragma once

#include "platform/profile_strings.h"

namespace tarvik {

/// Profile strings as kernel32 gives them, from one reading of the file. Windows' own call reads the file
/// again for each key, and takes no path outside the system code page.
/// The file must be in an ASCII-compatible code page; UTF-16 is not read.
class Win32ProfileStrings final : public ProfileStrings {
 public:
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override;

 private:
  std::wstring path_;  ///< of the file whose text is held
  std::string text_;
};

}  // namespace tarvik
