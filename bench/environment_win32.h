#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik::bench {

/// A setting of the bench, which is an environment variable; `fallback` when it is not set.
inline std::string Setting(const char* name, const std::string& fallback) {
  char value[1024];
  const DWORD length = ::GetEnvironmentVariableA(name, value, sizeof value);
  return length == 0 || length >= sizeof value ? fallback : std::string(value, length);
}

/// The setting's words, separated by blanks, contain that one.
inline bool SettingHas(const char* name, const std::string& word) {
  return (" " + Setting(name, "") + " ").find(" " + word + " ") != std::string::npos;
}

/// The value in the setting's words of the form "name=value"; nothing when the name is not among them.
inline std::optional<std::string> NamedSetting(const char* setting, const std::string& name) {
  const std::string words = " " + Setting(setting, "") + " ";
  const size_t found = words.find(" " + name + "=");
  if (found == std::string::npos) return std::nullopt;
  const size_t begin = found + name.size() + 2;
  return words.substr(begin, words.find(' ', begin) - begin);
}

}  // namespace tarvik::bench
