#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarvik::lab {

/// A source of a guide is malformed. The text names the line.
class GuideError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A text of a guide in UTF-8.
struct BothTexts {
  std::string english;
  std::string japanese;

  friend bool operator==(const BothTexts&, const BothTexts&) = default;
};

/// One of the two, so that a page names its language once.
using GuideLanguage = std::string BothTexts::*;

/// The program's texts that the guides quote, so that they are written only once.
struct GuideTexts {
  std::map<int32_t, BothTexts> messages;   ///< by number, as the program shows them, access keys included
  std::map<std::string, BothTexts> steps;  ///< the steps that explanations share, by name without "@"
  std::map<int32_t, BothTexts> titles;     ///< titles of the explanations, by the number of a message
};

/// Reads them from the program and from resources/ in the folder of the sources. Throws GuideError.
GuideTexts ReadGuideTexts(const std::string& sources);

/// A text without access key and without the colon or equals sign at its end: "TCP po&rt:" becomes "TCP
/// port".
std::string Caption(std::string text);

/// The columns that a text takes in a window with fixed pitch; a full-width character takes two.
size_t ColumnsOf(std::string_view text);

}  // namespace tarvik::lab
