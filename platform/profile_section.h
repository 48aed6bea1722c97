#pragma once

#include <string_view>
#include <vector>

namespace tarvik {

/// One key of a profile (INI) file, as it points into the file's text.
struct ProfileEntry {
  std::string_view key;
  std::string_view value;
};

/// The keys of a section, in the file's order, read as Windows' GetPrivateProfileString reads them. `text` is
/// the whole file in any ASCII-compatible code page (UTF-16 is not); the entries point into it. A section's
/// name is compared without regard to case (ASCII), and only the first section of that name counts. Spaces
/// and tabs around keys and values are dropped; then a value loses one pair of quotes, single or double,
/// around it. Lines without "=" and lines that begin with ";" are no keys. Empty when there is no such
/// section.
std::vector<ProfileEntry> ReadProfileSection(std::string_view text, std::string_view section);

/// The value of the first entry with the key, compared without regard to case (ASCII); empty when there is
/// none.
std::string_view ProfileValue(const std::vector<ProfileEntry>& entries, std::string_view key);

}  // namespace tarvik
