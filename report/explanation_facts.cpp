// Puts the facts of a run into an explanation.

#include "report/explanation_facts.h"

#include <algorithm>
#include <iterator>

#include "report/finding_words.h"

namespace tarvik::report {
namespace {

struct Placeholder {
  std::wstring_view name;
  const wchar_t* words;     ///< as WithFacts reads them
  bool zeroCounts = false;  ///< a value of 0 is a value
};

constexpr Placeholder kPlaceholders[] = {
    {L"target", L"%T"},
    {L"address", L"%R"},
    {L"asked", L"%A"},
    {L"other", L"%O"},
    {L"echoes answered", L"%N", true},
    {L"echoes sent", L"%S"},
    {L"slowest", L"%L", true},
    {L"error", L"%E"},
    {L"card", L"%C"},
    {L"pc address", L"%I"},
    {L"pc mask", L"%M"},
    {L"gateway", L"%G"},
    {L"tcp port", L"%P"},
    {L"time-out", L"%W"},
    {L"seconds", L"%D", true},
    {L"library error", L"%B"},
    {L"cnc", L"%Y"},
    {L"k7 server", L"%H"},
    {L"k7 error", L"%K"},
    {L"k7 answers", L"%U"},
    {L"live", L"%V", true},
    {L"entries", L"%F"},
    {L"ftp seconds", L"%r"},
    {L"reply", L"%c"},
};

const Placeholder* PlaceholderNamed(std::wstring_view name) {
  const auto* const found =
      std::find_if(std::begin(kPlaceholders), std::end(kPlaceholders),
                   [name](const Placeholder& placeholder) { return placeholder.name == name; });
  return found == std::end(kPlaceholders) ? nullptr : found;
}

/// Empty when the run has no such fact.
std::wstring ValueOf(std::wstring_view name, const Run& run, Rung rung, AnswerLanguage language) {
  const Placeholder* const placeholder = PlaceholderNamed(name);
  if (placeholder == nullptr) return {};
  const std::wstring value = WithFacts(placeholder->words, run, rung, language);
  const bool isZero = value == L"0" || value == L"0.0";
  return isZero && !placeholder->zeroCounts ? std::wstring() : value;
}

bool EndsWithOpenBracket(std::wstring_view text) { return text.ends_with(L'(') || text.ends_with(0xFF08); }
bool StartsWithClosingBracket(std::wstring_view text) {
  return text.starts_with(L')') || text.starts_with(0xFF09);
}

/// Removes what would be left around a placeholder without a value.
void CloseGap(std::wstring& before, std::wstring_view& after) {
  if (EndsWithOpenBracket(before) && StartsWithClosingBracket(after)) {
    before.pop_back();
    after.remove_prefix(1);
  }
  if (before.ends_with(L' ')) before.pop_back();
}

std::wstring WordsForTarget(AnswerLanguage language) {
  return language == AnswerLanguage::Japanese ? L"入力したアドレス" : L"the typed address";
}

}  // namespace

bool IsPlaceholder(std::wstring_view name) { return PlaceholderNamed(name) != nullptr; }

FilledText Filled(const BothLanguages& text, const Run& run, Rung rung, AnswerLanguage language) {
  FilledText filled;
  std::wstring_view rest = text.In(language);
  while (!rest.empty()) {
    const size_t open = std::min(rest.find(L'{'), rest.size());
    const size_t close = rest.find(L'}', open);
    if (close == std::wstring_view::npos) break;
    const std::wstring_view name = rest.substr(open + 1, close - open - 1);
    filled.text += rest.substr(0, open);
    rest.remove_prefix(close + 1);
    std::wstring value = ValueOf(name, run, rung, language);
    if (value.empty()) {
      filled.complete = false;
      if (name == L"target")
        value = WordsForTarget(language);
      else
        CloseGap(filled.text, rest);
    }
    filled.text += value;
  }
  filled.text += rest;
  return filled;
}

ShownExplanation Shown(const FoundExplanation& found, const Run& run, AnswerLanguage language) {
  if (found.explanation == nullptr) return {};
  const Explanation& entry = *found.explanation;
  const auto filled = [&](const BothLanguages& text) {
    return Filled(text, run, entry.rung.value_or(Rung::Target), language);
  };
  ShownExplanation shown;
  shown.title = TitleOf(found, language);
  for (const BothLanguages& step : entry.steps) shown.steps.push_back(filled(step).text);
  for (const BothLanguages& facts : entry.facts) {
    const FilledText text = filled(facts);
    if (!text.complete) continue;
    shown.facts = text.text;
    break;
  }
  shown.meaning = filled(entry.meaning).text;
  shown.good = filled(entry.good).text;
  shown.ask = filled(entry.ask).text;
  return shown;
}

}  // namespace tarvik::report
