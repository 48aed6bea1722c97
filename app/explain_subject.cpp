#include "app/explain_subject.h"

#include <algorithm>
#include <string_view>

#include "platform/text.h"

namespace tarvik {
namespace {

using report::FoundExplanation;

/// How far back the message that reports a finding can be: lines before these only cost time.
constexpr size_t kMaxLinesBack = 50;
/// In each direction. Longer listings have nothing else near.
constexpr size_t kMaxLinesAway = 300;

bool IsBad(report::RungState state) {
  return state == report::RungState::Failed || state == report::RungState::Doubtful;
}

bool WasStarted(const report::Run& run) { return run.active || run.end != report::RunEnd::None; }

bool IsRule(std::wstring_view line) {
  return line.size() >= 5 && line.find_first_not_of(L'-') == std::wstring_view::npos;
}

/// The heading of a directory listing, or one of its lines, which only the pattern for any text matches.
bool IsListing(const FoundExplanation& found) {
  return found.pattern == L"*" || found.pattern == L"Name  *Size";
}

}  // namespace

FoundExplanation ExplainSubject::WithNumber(const FoundExplanation& found) const {
  const auto leadsThere = [&](const FoundExplanation& shown) {
    return shown.message && explanations_.ForRun(shown, answer_).explanation == found.explanation;
  };
  const auto with = [&](const FoundExplanation& shown) {
    FoundExplanation numbered = found;
    numbered.message = shown.message;
    return numbered;
  };
  const size_t lines = std::min(run_.lines.size(), kMaxLinesBack);
  for (auto line = run_.lines.rbegin(); line != run_.lines.rbegin() + static_cast<ptrdiff_t>(lines); ++line)
    if (const FoundExplanation shown = explanations_.OfLine(line->text, texts_); leadsThere(shown))
      return with(shown);
  const size_t boxes = std::min(run_.boxes.size(), kMaxLinesBack);
  for (auto box = run_.boxes.rbegin(); box != run_.boxes.rbegin() + static_cast<ptrdiff_t>(boxes); ++box)
    if (const FoundExplanation shown = explanations_.OfBox(box->text, texts_); leadsThere(shown))
      return with(shown);
  return found;
}

FoundExplanation ExplainSubject::Verdict() const { return WithNumber(explanations_.Of(answer_.finding)); }

FoundExplanation ExplainSubject::OfRung(report::Rung rung) const {
  return WithNumber(explanations_.Of(answer_.Of(rung).finding));
}

FoundExplanation ExplainSubject::OfBox(const std::wstring& text) const {
  const bool inRun = std::any_of(run_.boxes.begin(), run_.boxes.end(),
                                 [&text](const report::RunBox& box) { return box.text == text; });
  const FoundExplanation found = explanations_.OfBox(text, texts_);
  return inRun ? explanations_.ForRun(found, answer_) : found;
}

FoundExplanation ExplainSubject::OfOneLine(const std::wstring& line) const {
  const FoundExplanation found = explanations_.OfLine(line, texts_);
  const bool inRun = explanations_.ReportsFailure(found) &&
                     std::any_of(run_.lines.begin(), run_.lines.end(),
                                 [&line](const report::RunLine& each) { return each.text == line; });
  return inRun ? explanations_.ForRun(found, answer_) : found;
}

bool ExplainSubject::FailsNow(const FoundExplanation& found) const {
  if (!explanations_.ReportsFailure(found) || !found.explanation->rung) return false;
  // A line of an earlier test whose rung has passed since no longer counts.
  return !WasStarted(run_) || IsBad(answer_.Of(*found.explanation->rung).state);
}

FoundExplanation ExplainSubject::OfLine(const std::vector<std::wstring>& lines, size_t index) const {
  const bool saysNothing = TrimSpaces(lines[index]).empty() || IsRule(lines[index]);
  FoundExplanation own = OfOneLine(lines[index]);
  if (!saysNothing && !IsListing(own)) return own;
  for (size_t away = 1; away <= kMaxLinesAway; ++away)
    // Above, a line number below 0 is a very large one.
    for (const size_t line : {index - away, index + away}) {
      if (line >= lines.size()) continue;
      if (FoundExplanation found = OfOneLine(lines[line]); FailsNow(found)) return found;
    }
  return saysNothing ? Verdict() : own;
}

}  // namespace tarvik
