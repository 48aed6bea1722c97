#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/clipboard.h"
#include "platform/runtime_error.h"
#include "platform/settings_store.h"

namespace tarvik::test {

/// A settings store in memory; values by "section\key".
class FakeSettings final : public SettingsStore {
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
class FakeClipboard final : public Clipboard {
 public:
  void SetText(const std::wstring& newText) override {
    ++sessions;
    if (taken) throw RuntimeError(L"The clipboard is in use by another program. Try again.");
    text = newText;
  }
  std::wstring GetText() override { return text.value_or(std::wstring()); }

  std::optional<std::wstring> text = L"from before";
  int sessions = 0;    ///< calls of SetText
  bool taken = false;  ///< another program has it open
};

}  // namespace tarvik::test
