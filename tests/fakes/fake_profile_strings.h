#pragma once

#include <map>
#include <string>

#include "platform/profile_strings.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik::test {

/// Profile files in memory: their values under "path|section|key".
class FakeProfileStrings final : public ProfileStrings {
 public:
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    ++reads;
    if (failing) throw RuntimeError(L"The disk is gone.");
    if (unterminated) {
      for (uint32_t i = 0; i < bufferSize; ++i) buffer[i] = 'x';
      return bufferSize + 100;
    }
    const auto found = values.find(NarrowAscii(path) + "|" + section + "|" + key);
    const std::string value = found == values.end() ? "" : found->second.substr(0, bufferSize - 1);
    value.copy(buffer, value.size());
    buffer[value.size()] = '\0';
    return static_cast<uint32_t>(value.size());
  }

  std::map<std::string, std::string> values;
  int reads = 0;
  bool failing = false;
  bool unterminated = false;  ///< fills the whole buffer and boasts of more
};

}  // namespace tarvik::test
