#include "platform/profile_strings_win32.h"

#include "platform/code_page_win32.h"
#include "platform/windows_win32.h"

namespace tarvik {

uint32_t Win32ProfileStrings::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                       char* buffer, uint32_t bufferSize,
                                                       const std::wstring& path) {
  return ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer, bufferSize,
                                    Win32CodePage().ToAnsi(path).c_str());
}

}  // namespace tarvik
