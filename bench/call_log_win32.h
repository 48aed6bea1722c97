#pragma once

#include <cstdio>
#include <string>

#include "bench/environment_win32.h"

namespace tarvik::bench {

/// The text in double quotes, "null" for a null pointer. Control characters and quotes become "?", so that an
/// argument cannot break a log line.
inline std::string Quoted(const char* text) {
  if (text == nullptr) return "null";
  std::string quoted = "\"";
  for (; *text != '\0'; ++text) {
    const auto byte = static_cast<unsigned char>(*text);
    quoted += byte < ' ' || byte == '"' ? '?' : *text;
  }
  return quoted + '"';
}

/// Appends a line to the file named by TARVIK_BENCH_CALLS, where a test reads what a stand-in was called with
/// and what it returned. Does nothing when the variable is not set or the file cannot be opened.
inline void LogCall(const std::string& line) {
  const std::string path = Setting("TARVIK_BENCH_CALLS", "");
  if (path.empty()) return;
  const HANDLE file = ::CreateFileA(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  const std::string text = line + "\n";
  DWORD written = 0;
  ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  ::CloseHandle(file);
}

}  // namespace tarvik::bench
