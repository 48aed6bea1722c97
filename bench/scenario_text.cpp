#include "bench/scenario_text.h"

#include <charconv>

namespace tarvik::bench {
namespace {

constexpr size_t kMaxScenarioBytes = 1 << 20;

[[noreturn]] void FailAt(int line, const std::string& why) {
  throw ScenarioError("line " + std::to_string(line) + ": " + why);
}

bool IsSpace(char character) { return character == ' ' || character == '\t' || character == '\r'; }

std::vector<std::string> SplitWords(std::string_view line, int number) {
  std::vector<std::string> words;
  size_t at = 0;
  while (true) {
    while (at < line.size() && IsSpace(line[at])) ++at;
    if (at == line.size() || line[at] == '#') return words;
    size_t end = at;
    if (line[at] == '"') {
      end = line.find('"', ++at);
      if (end == std::string_view::npos) FailAt(number, "the quote is not closed");
      words.emplace_back(line.substr(at, end - at));
      ++end;
      if (end < line.size() && !IsSpace(line[end]))
        FailAt(number, "expected a space after the closing quote");
    } else {
      while (end < line.size() && !IsSpace(line[end])) ++end;
      words.emplace_back(line.substr(at, end - at));
    }
    at = end;
  }
}

}  // namespace

void ScenarioLine::Fail(const std::string& why) const { FailAt(number_, Name() + ": " + why); }

void ScenarioLine::Expect(size_t min, size_t max) const {
  if (Count() < min) Fail("an argument is missing");
  if (Count() > max) Fail("\"" + words_[max + 1] + "\" is one argument too many");
}

const std::string& ScenarioLine::Word(size_t index) const {
  if (index >= Count()) Fail("an argument is missing");
  return words_[index + 1];
}

int32_t ScenarioLine::Number(size_t index, int32_t min, int32_t max) const {
  const std::optional<int64_t> number = ParseNumber(Word(index));
  if (!number) Fail("\"" + Word(index) + "\" is not a number");
  if (*number < min || *number > max) {
    Fail(Word(index) + " is not between " + std::to_string(min) + " and " + std::to_string(max));
  }
  return static_cast<int32_t>(*number);
}

std::vector<ScenarioLine> ReadScenarioLines(std::string_view text) {
  if (text.size() > kMaxScenarioBytes) throw ScenarioError("the scenario is longer than a megabyte");
  std::vector<ScenarioLine> lines;
  for (int number = 1; !text.empty(); ++number) {
    const size_t end = text.find('\n');
    std::vector<std::string> words = SplitWords(text.substr(0, end), number);
    if (!words.empty()) lines.emplace_back(number, std::move(words));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::optional<int64_t> ParseNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    text.remove_prefix(2);
    base = 16;
  }
  // Unsigned, so that from_chars rejects a second sign.
  uint64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || stopped != end || value > INT64_MAX) return std::nullopt;
  return negative ? -static_cast<int64_t>(value) : static_cast<int64_t>(value);
}

}  // namespace tarvik::bench
