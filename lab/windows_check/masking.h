#pragma once

#include <string>
#include <vector>

namespace tarvik::check {

/// Replaces private data in the texts of the report.
class Mask {
 public:
  /// `word`: UTF-8, such as the user's name, replaced by `substitute` wherever it is a whole word, in any
  /// case (ASCII letters only). Words of one character are ignored.
  void AddWord(const std::string& word, const std::string& substitute);

  /// The text without the words, MAC addresses and public IPv4 addresses, and without the name of the folder
  /// after "\Users\", which is that of any user of the PC.
  std::string Apply(const std::string& text) const;

 private:
  struct Word {
    std::string text;
    std::string substitute;
  };
  std::vector<Word> words_;
};

}  // namespace tarvik::check
