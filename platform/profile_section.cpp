#include "platform/profile_section.h"

#include <algorithm>

namespace tarvik {
namespace {

// Safe in double-byte code pages: the second byte of a character is never one of these.
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kSpaces = " \t\v\f\x1A";

std::string_view Trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(kSpaces);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char left, char right) { return Lower(left) == Lower(right); });
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

std::vector<ProfileEntry> ReadProfileSection(std::string_view text, std::string_view section) {
  std::vector<ProfileEntry> entries;
  bool inside = false;
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of(kLineEnds), text.size());
    const std::string_view line = Trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.starts_with('[')) {
      if (inside) break;
      inside = SameName(line.substr(1, line.find(']') - 1), section);
    } else if (const size_t equals = line.find('=');
               inside && equals != std::string_view::npos && line[0] != ';') {
      entries.push_back({Trimmed(line.substr(0, equals)), WithoutQuotes(Trimmed(line.substr(equals + 1)))});
    }
  }
  return entries;
}

std::string_view ProfileValue(const std::vector<ProfileEntry>& entries, std::string_view key) {
  for (const ProfileEntry& entry : entries)
    if (SameName(entry.key, key)) return entry.value;
  return {};
}

}  // namespace tarvik
