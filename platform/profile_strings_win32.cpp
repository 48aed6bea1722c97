#include "platform/profile_strings_win32.h"

#include <algorithm>

#include "platform/files_win32.h"
#include "platform/profile_section.h"

namespace tarvik {

uint32_t Win32ProfileStrings::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                       char* buffer, uint32_t bufferSize,
                                                       const std::wstring& path) {
  if (bufferSize == 0) return 0;
  if (path != path_) {
    text_ = Win32Files().Read(path).value_or(std::string());
    path_ = path;
  }
  std::string_view value = ProfileValue(ReadProfileSection(text_, section), key);
  value = value.substr(0, bufferSize - 1);
  *std::copy(value.begin(), value.end(), buffer) = '\0';
  return static_cast<uint32_t>(value.size());
}

}  // namespace tarvik
