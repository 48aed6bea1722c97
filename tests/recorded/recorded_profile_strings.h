#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <utility>

#include "platform/profile_strings.h"

namespace tarvik::test {

/// Profile files in memory; all paths share the same sections.
class RecordedProfileStrings final : public ProfileStrings {
 public:
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    ++queries;
    lastPath = path;
    const auto found = values.find({section, key});
    const std::string value = found == values.end() ? std::string() : found->second;
    const size_t length = std::min<size_t>(value.size(), bufferSize - 1);
    std::memcpy(buffer, value.data(), length);
    buffer[length] = '\0';
    return static_cast<uint32_t>(length);
  }

  std::map<std::pair<std::string, std::string>, std::string> values;  ///< by section and key
  int queries = 0;
  std::wstring lastPath;
};

}  // namespace tarvik::test
