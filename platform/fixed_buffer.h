#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvik {

/// The text up to, not including, its first NUL; the whole text when it has none. The view's length
/// bounds the search, so a library that forgets the NUL cannot lead past its buffer.
inline std::string_view TrimNull(std::string_view text) { return text.substr(0, text.find('\0')); }
inline std::wstring_view TrimNull(std::wstring_view text) { return text.substr(0, text.find(L'\0')); }

/// The text cut, or padded at its end with blanks, to exactly `length` bytes.
inline std::string PadWithBlanks(std::string_view text, size_t length) {
  std::string padded(text.substr(0, length));
  padded.resize(length, ' ');
  return padded;
}

}  // namespace tarvik
