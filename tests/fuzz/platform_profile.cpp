#include <algorithm>
#include <string_view>

#include "platform/profile_section.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

/// Any profile file: every key and value is part of one of its lines, and every key is found.
TARVIK_FUZZER(platform_profile) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto entries = tarvik::ReadProfileSection(text, "1033");
  for (const tarvik::ProfileEntry& entry : entries) {
    for (const std::string_view piece : {entry.key, entry.value}) {
      Require(piece.empty() ||
              (piece.data() >= text.data() && piece.data() + piece.size() <= text.data() + size));
      Require(piece.find_first_of("\r\n") == std::string_view::npos);
    }
    Require(entry.key.find('=') == std::string_view::npos);
    const auto first = std::find_if(entries.begin(), entries.end(), [&](const tarvik::ProfileEntry& other) {
      return other.key == entry.key;
    });
    if (entry.key.find_first_not_of("0123456789") == std::string_view::npos)
      Require(tarvik::ProfileValue(entries, entry.key) == first->value);
  }
}
