#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tarvik::test {

/// Files in memory.
class RecordedFiles final : public Files {
 public:
  bool Exists(const std::wstring& path) override {
    ++existsQueries;
    if (hiddenQueries > 0) {
      --hiddenQueries;
      return false;
    }
    return contents.contains(path);
  }
  std::optional<std::string> Read(const std::wstring& path) override {
    const auto found = contents.find(path);
    if (found == contents.end()) return std::nullopt;
    return found->second;
  }
  bool Write(const std::wstring& path, std::string_view bytes) override {
    if (unwritable.contains(path)) return false;
    contents[path] = bytes;
    written[path] = bytes;
    return true;
  }
  bool Delete(const std::wstring& path) override { return contents.erase(path) != 0; }

  std::map<std::wstring, std::string> contents;  ///< what is there now
  std::map<std::wstring, std::string> written;   ///< what was ever written
  std::set<std::wstring> unwritable;
  int hiddenQueries = 0;  ///< so many queries do not see a file yet
  int existsQueries = 0;
};

}  // namespace tarvik::test
