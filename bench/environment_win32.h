#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik::bench {

/// A setting of the bench, which is an environment variable; `fallback` when it is not set.
inline std::string Setting(const char* name, const std::string& fallback) {
  char value[1024];
  const DWORD length = ::GetEnvironmentVariableA(name, value, sizeof value);
  return length == 0 || length >= sizeof value ? fallback : std::string(value, length);
}

}  // namespace tarvik::bench
