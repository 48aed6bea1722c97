#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace tarvik::test {

/// Files in memory.
class FakeFiles final : public Files {
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
    const bool readable = found != contents.end() && !unreadable.contains(path);
    if (!Succeeds(readable)) return std::nullopt;
    return found->second;
  }
  bool Write(const std::wstring& path, std::string_view bytes) override {
    if (!Succeeds(!unwritable.contains(path))) return false;
    contents[path] = bytes;
    written[path] = bytes;
    return true;
  }
  bool WriteNew(const std::wstring& path, std::string_view bytes) override {
    if (!contents.contains(path)) return Write(path, bytes);
    lastError_ = 80;  // ERROR_FILE_EXISTS
    return false;
  }
  bool Replace(const std::wstring& from, const std::wstring& to) override {
    const bool readOnly = contents.contains(to) && (AttributesOf(to) & kReadOnly) != 0;
    if (!Succeeds(contents.contains(from) && !unwritable.contains(to) && !readOnly)) return false;
    contents[to] = contents[from];
    contents.erase(from);
    return true;
  }
  bool IsLocalFolder(const std::wstring& path) override { return folders.contains(path); }
  bool Delete(const std::wstring& path) override { return contents.erase(path) != 0; }
  bool Copy(const std::wstring& from, const std::wstring& to) override {
    if (!Succeeds(contents.contains(from) && !contents.contains(to) && !unwritable.contains(to)))
      return false;
    contents[to] = contents[from];
    return true;
  }
  bool Append(const std::wstring& path, std::string_view bytes) override {
    const bool readOnly = (AttributesOf(path) & kReadOnly) != 0;
    if (!Succeeds(contents.contains(path) && !unwritable.contains(path) && !readOnly && appendsLeft != 0))
      return false;
    --appendsLeft;
    contents[path] += bytes;
    return true;
  }
  std::optional<uint32_t> Attributes(const std::wstring& path) override {
    if (!Succeeds(attributesReadable && contents.contains(path))) return std::nullopt;
    return AttributesOf(path);
  }
  bool SetAttributes(const std::wstring& path, uint32_t value) override {
    if (!Succeeds(attributesLeft != 0)) return false;
    --attributesLeft;
    attributes[path] = value;
    return true;
  }
  uint32_t LastError() const override { return lastError_; }

  std::map<std::wstring, std::string> contents;  ///< of the existing files
  std::map<std::wstring, std::string> written;   ///< what was last written, deleted files included
  std::set<std::wstring> folders;                ///< on drives of the PC
  std::set<std::wstring> unwritable;
  std::set<std::wstring> unreadable;
  std::map<std::wstring, uint32_t> attributes;  ///< other than 0x20
  bool attributesReadable = true;
  int appendsLeft = -1;     ///< number of appends that succeed; -1 = all
  int attributesLeft = -1;  ///< the same for SetAttributes
  uint32_t failure = 2;     ///< the last error of failed calls
  int hiddenQueries = 0;    ///< number of Exists calls that find no file yet
  int existsQueries = 0;

 private:
  uint32_t AttributesOf(const std::wstring& path) const {
    const auto found = attributes.find(path);
    return found == attributes.end() ? 0x20 : found->second;
  }
  bool Succeeds(bool done) {
    lastError_ = done ? 0 : failure;
    return done;
  }

  uint32_t lastError_ = 0;
};

}  // namespace tarvik::test
