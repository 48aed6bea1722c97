#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/clipboard.h"
#include "platform/profile_strings.h"
#include "platform/runtime_error.h"
#include "platform/settings_store.h"
#include "platform/text.h"

namespace tarvik::test {

/// A settings area in memory, under "section\key".
class RecordedSettings final : public SettingsStore {
 public:
  std::optional<std::wstring> Read(const std::wstring& section, const std::wstring& key) override {
    const auto found = values.find(section + L"\\" + key);
    if (found == values.end()) return std::nullopt;
    return found->second;
  }
  bool Write(const std::wstring& section, const std::wstring& key, const std::wstring& value) override {
    if (!writable) return false;
    values[section + L"\\" + key] = value;
    return true;
  }

  std::map<std::wstring, std::wstring> values;
  bool writable = true;
};

/// A clipboard in memory.
class RecordedClipboard final : public Clipboard {
 public:
  void Clear() override {
    if (taken) throw RuntimeError(L"The clipboard is in use by another program. Try again.");
    text = std::nullopt;
    ++clears;
  }
  void SetText(const std::wstring& newText) override { text = newText; }
  std::wstring GetText() override { return text.value_or(std::wstring()); }

  std::optional<std::wstring> text = L"from before";
  int clears = 0;
  bool taken = false;  ///< another program holds it
};

/// Profile files in memory: their values under "path|section|key".
class RecordedProfile final : public ProfileStrings {
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
