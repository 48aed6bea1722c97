#pragma once

#include "platform/profile_strings.h"

namespace tarvik {

/// Profile strings through kernel32. Where neither the path nor its short form can be represented in the
/// system code page, the file is read directly.
class Win32ProfileStrings final : public ProfileStrings {
 public:
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override;
};

}  // namespace tarvik
