#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::bench {

/// An invalid scenario; the message gives the line number and the reason.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A scenario line that is not empty: a keyword and its arguments.
class ScenarioLine {
 public:
  ScenarioLine(int number, std::vector<std::string> words) : number_(number), words_(std::move(words)) {}

  const std::string& Name() const { return words_.front(); }

  /// The number of arguments.
  size_t Count() const { return words_.size() - 1; }

  /// Throws ScenarioError unless the number of arguments is between `min` and `max`.
  void Expect(size_t min, size_t max) const;

  /// The argument at a 0-based index. Throws ScenarioError when it is missing.
  const std::string& Word(size_t index) const;

  /// The argument as a number, decimal or hexadecimal ("0x1F"). Throws ScenarioError when it is missing, not
  /// a number, or not between `min` and `max`.
  int32_t Number(size_t index, int32_t min, int32_t max) const;

  /// Throws ScenarioError with the line number, the keyword and this reason.
  [[noreturn]] void Fail(const std::string& why) const;

 private:
  int number_;
  std::vector<std::string> words_;
};

/// Splits a scenario into lines and words, without empty lines. Words are separated by spaces and tabs; a
/// word in double quotes may contain them and may be empty. "#" at the start of a word begins a comment.
/// Throws ScenarioError when a quote is not closed or the text is longer than 1 MiB.
std::vector<ScenarioLine> ReadScenarioLines(std::string_view text);

/// A decimal or hexadecimal ("0x") integer with an optional sign. Nothing when the text is not one or its
/// magnitude exceeds INT64_MAX.
std::optional<int64_t> ParseNumber(std::string_view text);

}  // namespace tarvik::bench
