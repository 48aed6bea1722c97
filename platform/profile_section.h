#pragma once

#include <string_view>
#include <vector>

namespace tarvik {

/// A key of a profile (INI) file and its value. Both point into the file's text.
struct ProfileEntry {
  std::string_view key;
  std::string_view value;
};

/// Reads a section as GetPrivateProfileString does. `text` is the whole file, in an ASCII-compatible code
/// page (not UTF-16); it must outlive the result. Returns the keys in file order; empty when the section is
/// missing.
/// - Section names are case-insensitive (ASCII only). Of several sections of that name only the first counts.
/// - White space around keys and values is removed, then one pair of single or double quotes around a value.
/// - Lines without "=" and lines that start with ";" are skipped.
std::vector<ProfileEntry> ReadProfileSection(std::string_view text, std::string_view section);

/// The value of the first entry with this key, which is case-insensitive (ASCII only). Empty when the key is
/// missing.
std::string_view ProfileValue(const std::vector<ProfileEntry>& entries, std::string_view key);

}  // namespace tarvik
