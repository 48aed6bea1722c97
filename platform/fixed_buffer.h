#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvik {

/// The text before its first NUL; all of it when there is no NUL. Pass the whole buffer: then even a library
/// that forgets the NUL cannot cause a read beyond it.
inline std::string_view TrimNull(std::string_view text) { return text.substr(0, text.find('\0')); }
inline std::wstring_view TrimNull(std::wstring_view text) { return text.substr(0, text.find(L'\0')); }

/// The text truncated, or padded with trailing spaces, to exactly `length` bytes.
inline std::string PadWithSpaces(std::string_view text, size_t length) {
  std::string padded(text.substr(0, length));
  padded.resize(length, ' ');
  return padded;
}

}  // namespace tarvik
