#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "platform/runtime_error.h"
#include "platform/system.h"
#include "platform/text.h"

namespace tarvik::test {

/// A PC with a current Windows, empty profile files and registry, and a stopped clock.
class FakeSystem : public System {
 public:
  bool GetVersionExA(OsVersionRecord& answer) override {
    askedSize = answer.size;
    if (!versionKnown) return false;
    answer.platformId = platformId;
    answer.majorVersion = majorVersion;
    answer.minorVersion = minorVersion;
    return true;
  }
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    ++profileReads;
    if (profileFails) throw RuntimeError(L"The disk is gone.");
    if (profileUnterminated) {
      for (uint32_t i = 0; i < bufferSize; ++i) buffer[i] = 'x';
      return bufferSize + 100;
    }
    const std::string value = ProfileString(section, key, path).substr(0, bufferSize - 1);
    value.copy(buffer, value.size());
    buffer[value.size()] = '\0';
    return static_cast<uint32_t>(value.size());
  }
  std::optional<std::wstring> ReadMachineRegistry(const std::wstring& key,
                                                  const std::wstring& name) override {
    const auto found = registry.find(key + L"|" + name);
    if (found == registry.end()) return std::nullopt;
    return found->second;
  }
  /// Orders texts by character code, with ASCII letters in upper case.
  std::string SortKey(std::wstring_view text) override {
    ++keysMade;
    std::string key;
    for (const wchar_t character : UpperCaseAscii(text)) {
      key.push_back(static_cast<char>(static_cast<uint32_t>(character) >> 8 & 0xFF));
      key.push_back(static_cast<char>(character & 0xFF));
    }
    return key;
  }
  std::wstring GeneralDateTime() override { return now; }
  ZonedTime LocalTime() override { return localTime; }
  std::wstring UserName() override { return userName; }
  std::wstring FolderOf(UserFolder folder) override {
    return folder == UserFolder::Desktop ? desktop : publicDocuments;
  }

  bool versionKnown = true;
  uint32_t platformId = kPlatformNt;
  uint32_t majorVersion = 10;
  uint32_t minorVersion = 0;
  uint32_t askedSize = 0;

  std::map<std::string, std::string> profile;  ///< values under "path|section|key"
  /// The value of a key that is not in `profile`; without this function it is empty.
  std::function<std::string(const std::string& key)> anyProfileKey;
  int profileReads = 0;
  bool profileFails = false;
  bool profileUnterminated = false;  ///< fills the whole buffer and reports more

  std::map<std::wstring, std::wstring> registry;  ///< values under "key|name"

  int keysMade = 0;
  std::wstring now = L"2/3/2024 4:05:06 PM";
  ZonedTime localTime{2024, 2, 3, 16, 5, 540};
  std::wstring userName = L"anna";
  std::wstring desktop = L"C:\\Users\\anna\\Desktop";
  std::wstring publicDocuments = L"C:\\Users\\Public\\Documents";

 private:
  std::string ProfileString(const std::string& section, const std::string& key, const std::wstring& path) {
    const auto found = profile.find(NarrowAscii(path) + "|" + section + "|" + key);
    if (found != profile.end()) return found->second;
    return anyProfileKey ? anyProfileKey(key) : std::string();
  }
};

}  // namespace tarvik::test
