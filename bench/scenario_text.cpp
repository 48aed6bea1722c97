#include "bench/scenario_text.h"

#include <charconv>

namespace tarvik::bench {
namespace {

constexpr size_t kMostBytes = 1 << 20;

[[noreturn]] void FailAt(int line, const std::string& why) {
  throw ScenarioError("line " + std::to_string(line) + ": " + why);
}

bool IsBlank(char character) { return character == ' ' || character == '\t' || character == '\r'; }

std::vector<std::string> SplitWords(std::string_view line, int number) {
  std::vector<std::string> words;
  size_t at = 0;
  while (true) {
    while (at < line.size() && IsBlank(line[at])) ++at;
    if (at == line.size() || line[at] == '#') return words;
    size_t end = at;
    if (line[at] == '"') {
      end = line.find('"', ++at);
      if (end == std::string_view::npos) FailAt(number, "a quote is not closed");
      words.emplace_back(line.substr(at, end - at));
      ++end;
      if (end < line.size() && !IsBlank(line[end])) FailAt(number, "a blank is missing behind a quote");
    } else {
      while (end < line.size() && !IsBlank(line[end])) ++end;
      words.emplace_back(line.substr(at, end - at));
    }
    at = end;
  }
}

}  // namespace

void ScenarioLine::Fail(const std::string& why) const { FailAt(number_, Name() + ": " + why); }

void ScenarioLine::Expect(size_t least, size_t most) const {
  if (Count() < least) Fail("something is missing behind it");
  if (Count() > most) Fail("\"" + words_[most + 1] + "\" is too much");
}

const std::string& ScenarioLine::Word(size_t index) const {
  if (index >= Count()) Fail("something is missing behind it");
  return words_[index + 1];
}

int32_t ScenarioLine::Number(size_t index, int32_t least, int32_t most) const {
  const std::optional<int64_t> number = ParseNumber(Word(index));
  if (!number) Fail("\"" + Word(index) + "\" is no number");
  if (*number < least || *number > most) {
    Fail(Word(index) + " is not between " + std::to_string(least) + " and " + std::to_string(most));
  }
  return static_cast<int32_t>(*number);
}

std::vector<ScenarioLine> ReadScenarioLines(std::string_view text) {
  if (text.size() > kMostBytes) throw ScenarioError("the scenario is longer than a megabyte");
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
  // Unsigned, because another sign would be no number.
  uint64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || stopped != end || value > INT64_MAX) return std::nullopt;
  return negative ? -static_cast<int64_t>(value) : static_cast<int64_t>(value);
}

}  // namespace tarvik::bench
