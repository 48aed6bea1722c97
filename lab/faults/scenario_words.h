#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::lab {

// How a scenario file writes a tab and a line break.
inline constexpr std::string_view kTab = "<tab>";
inline constexpr std::string_view kNewLine = "<new line>";

// How it writes a line whose text comes from Windows.
inline constexpr char kAnyLine[] = "any line";

inline std::string Replaced(std::string text, std::string_view what, std::string_view with) {
  for (size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
    text.replace(at, what.size(), with);
  return text;
}

inline std::string_view Trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// The parts between spaces and tabs.
inline std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  while (!(text = Trimmed(text)).empty()) {
    const size_t end = std::min(text.find_first_of(" \t"), text.size());
    words.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return words;
}

}  // namespace tarvik::lab
