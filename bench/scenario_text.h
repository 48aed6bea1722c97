#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::bench {

/// A scenario cannot be read; the text names the line and what is wrong with it.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One line of a scenario that says something: a word that names what it sets, and the words behind it.
class ScenarioLine {
 public:
  ScenarioLine(int number, std::vector<std::string> words) : number_(number), words_(std::move(words)) {}

  const std::string& Name() const { return words_.front(); }

  /// How many words stand behind the name.
  size_t Count() const { return words_.size() - 1; }

  /// Throws ScenarioError unless so many words stand behind the name.
  void Expect(size_t least, size_t most) const;

  /// The word at that place behind the name, from 0. Throws ScenarioError when there is none.
  const std::string& Word(size_t index) const;

  /// The word as a number, decimal or hexadecimal ("0x1F"). Throws ScenarioError when it is none or not
  /// between the two.
  int32_t Number(size_t index, int32_t least, int32_t most) const;

  /// Throws ScenarioError with the line's number before the text.
  [[noreturn]] void Fail(const std::string& why) const;

 private:
  int number_;
  std::vector<std::string> words_;
};

/// The lines of a scenario. Words are separated by blanks and tabs; one in double quotes may contain them
/// and may be empty. "#" at the beginning of a word makes the rest of the line a comment. Throws
/// ScenarioError when a quote is not closed or the text is longer than a megabyte.
std::vector<ScenarioLine> ReadScenarioLines(std::string_view text);

/// A whole number, decimal or hexadecimal with "0x", with one sign before it. Nothing when the text is none.
std::optional<int64_t> ParseNumber(std::string_view text);

}  // namespace tarvik::bench
