#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik::bench {

/// The environment variable's value; `fallback` when it is not set, empty, or longer than 1,023 bytes.
inline std::string Setting(const char* name, const std::string& fallback) {
  char value[1024];
  const DWORD length = ::GetEnvironmentVariableA(name, value, sizeof value);
  return length == 0 || length >= sizeof value ? fallback : std::string(value, length);
}

/// True when the space-separated words of the variable include `word`.
inline bool SettingHas(const char* name, const std::string& word) {
  return (" " + Setting(name, "") + " ").find(" " + word + " ") != std::string::npos;
}

/// The value of the variable's word "name=value"; nothing when the name does not occur.
inline std::optional<std::string> NamedSetting(const char* setting, const std::string& name) {
  const std::string words = " " + Setting(setting, "") + " ";
  const size_t found = words.find(" " + name + "=");
  if (found == std::string::npos) return std::nullopt;
  const size_t begin = found + name.size() + 2;
  return words.substr(begin, words.find(' ', begin) - begin);
}

}  // namespace tarvik::bench
