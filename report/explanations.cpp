// Finds the explanation of a line, a message box or a finding. Of all patterns that match, the one with the
// most literal characters is the right one: "ICMP_Error:11010" before "ICMP_Error:*" before "*".

#include "report/explanations.h"

#include <algorithm>

#include "platform/text.h"
#include "report/answer.h"
#include "report/finding_names.h"

namespace tarvik::report {
namespace {

/// A reply's code is three characters, but says more than any three in a pattern.
constexpr size_t kReplyCodeLiterals = 10;
constexpr size_t kReplyClassLiterals = 5;

size_t Literals(std::wstring_view pattern) {
  return pattern.size() - static_cast<size_t>(std::count(pattern.begin(), pattern.end(), L'*'));
}

bool IsDigit(wchar_t letter) { return letter >= L'0' && letter <= L'9'; }

/// "530 Login incorrect." has the code 530 and is in class 5.
bool IsReply(std::wstring_view line, std::wstring_view code) {
  const bool hasCode = line.size() >= 3 && std::all_of(line.begin(), line.begin() + 3, IsDigit) &&
                       (line.size() == 3 || line[3] == L' ' || line[3] == L'-');
  return hasCode && line.starts_with(code);
}

/// The pattern of a message's first line, with `form` as the explanations write it: "*", "*#", "#*" or "#".
std::wstring PatternOf(std::wstring text, std::wstring_view form) {
  text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
  if (const size_t place = text.find(L"%1"); place != std::wstring::npos) text.replace(place, 2, L"*");
  return (form.starts_with(L'*') ? L"*" : L"") + text + (form.ends_with(L'*') ? L"*" : L"");
}

/// Every wording of a message: both built-in ones, that of the language file, and the number in brackets,
/// which appears when the language file lacks the message.
std::vector<std::wstring> WordingsOf(Message message, const Texts& texts) {
  const MessageRow& row = RowOf(message);
  std::vector<std::wstring> wordings = {row.english, texts.FromFile(message), L"(" + Decimal(row.id) + L")"};
  if (row.japanese != nullptr) wordings.emplace_back(row.japanese);
  return wordings;
}

bool IsFailure(RungState state) { return state == RungState::Failed || state == RungState::Doubtful; }

/// The text without the spaces around it and without the "=" before a number. "…" marks where something is
/// put into it; `before` is put before it.
std::wstring ForTitle(const wchar_t* text, const wchar_t* before) {
  std::wstring title(TrimSpaces(text));
  title.resize(std::min(title.find_first_of(L"\r\n"), title.size()));
  if (title.ends_with(L'=')) title.pop_back();
  if (const size_t place = title.find(L"%1"); place != std::wstring::npos) title.replace(place, 2, L"…");
  return before + title;
}

/// True for the end of a sentence, such as " is not a whole number.".
bool IsEndOfSentence(const wchar_t* text) { return text[0] == L' ' && text[1] >= L'a' && text[1] <= L'z'; }

}  // namespace

bool MatchesPattern(std::wstring_view text, std::wstring_view pattern) {
  // After a mismatch, the latest "*" takes one character more.
  size_t at = 0;
  size_t inPattern = 0;
  size_t star = std::wstring_view::npos;
  size_t afterStar = 0;
  while (at < text.size()) {
    if (inPattern < pattern.size() && pattern[inPattern] == L'*') {
      star = inPattern++;
      afterStar = at;
    } else if (inPattern < pattern.size() && pattern[inPattern] == text[at]) {
      ++inPattern;
      ++at;
    } else if (star != std::wstring_view::npos) {
      inPattern = star + 1;
      at = ++afterStar;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', inPattern) == std::wstring_view::npos;
}

Explanations::Match Explanations::BestMatch(std::wstring_view line, const Texts& texts, bool box) const {
  Match best;
  const auto consider = [&best, box](const Key& key, const std::wstring& pattern, size_t literals) {
    const bool exact = pattern.find(L'*') == std::wstring::npos;
    const size_t weight = literals * 4 + (exact ? 2 : 0) + (box && key.kind == KeyKind::Box ? 1 : 0);
    if (best.key == nullptr || weight > best.weight) best = {&key, pattern, weight};
  };
  for (const Key& key : keys_) {
    if (key.kind == KeyKind::Message) {
      for (const std::wstring& wording : WordingsOf(key.message, texts))
        if (const std::wstring pattern = PatternOf(wording, key.pattern); MatchesPattern(line, pattern))
          consider(key, pattern, Literals(pattern));
    } else if (key.kind == KeyKind::Reply) {
      if (!box && IsReply(line, key.pattern))
        consider(key, key.pattern, key.pattern.size() == 1 ? kReplyClassLiterals : kReplyCodeLiterals);
    } else if ((box || key.kind == KeyKind::Line) && MatchesPattern(line, key.pattern)) {
      consider(key, key.pattern, Literals(key.pattern));
    }
  }
  return best;
}

FoundExplanation Explanations::Found(const Match& match) const {
  if (match.key == nullptr) return {};
  const bool isMessage = match.key->kind == KeyKind::Message;
  return {&entries_[match.key->entry], isMessage ? std::optional(match.key->message) : std::nullopt,
          match.pattern};
}

FoundExplanation Explanations::Of(Finding finding) const {
  const auto found = findings_.find(finding);
  if (found == findings_.end()) return {};
  return {&entries_[found->second], std::nullopt, WidenAscii(NameOf(finding))};
}

FoundExplanation Explanations::Of(Message message) const {
  const auto isIt = [message](const Key& key) {
    return key.kind == KeyKind::Message && key.message == message;
  };
  const auto found = std::find_if(keys_.begin(), keys_.end(), isIt);
  return found == keys_.end() ? FoundExplanation() : Found({&*found, found->pattern, 0});
}

FoundExplanation Explanations::OfLine(std::wstring_view line, const Texts& texts) const {
  return TrimSpaces(line).empty() ? FoundExplanation() : Found(BestMatch(line, texts, false));
}

FoundExplanation Explanations::OfBox(std::wstring_view text, const Texts& texts) const {
  Match best = BestMatch(text, texts, true);
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of(L"\r\n"), text.size());
    const Match match = BestMatch(text.substr(0, end), texts, true);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (end == 0 || match.key == nullptr || Literals(match.pattern) == 0) continue;
    best = match;
    break;
  }
  return Found(best);
}

bool Explanations::ReportsFailure(const FoundExplanation& found) const {
  return std::any_of(findings_.begin(), findings_.end(), [&](const auto& finding) {
    return &entries_[finding.second] == found.explanation && IsFailure(RowOf(finding.first).state);
  });
}

std::vector<std::wstring> Explanations::FailurePatterns(Rung rung, const Texts& texts) const {
  std::vector<std::wstring> patterns;
  for (const Key& key : keys_)
    if (key.kind == KeyKind::Message && entries_[key.entry].rung == rung &&
        ReportsFailure({&entries_[key.entry], key.message, {}}))
      for (const std::wstring& wording : WordingsOf(key.message, texts))
        patterns.push_back(PatternOf(wording, key.pattern));
  return patterns;
}

FoundExplanation Explanations::ForRun(FoundExplanation found, const Answer& answer) const {
  if (found.explanation == nullptr || !found.explanation->rung || !ReportsFailure(found)) return found;
  // The lines of an echo look alike for both. Without its gateway, the run never pings the target.
  const bool atGateway =
      *found.explanation->rung == Rung::Target && answer.Of(Rung::Gateway).state == RungState::Failed;
  const RungFinding& rung = answer.Of(atGateway ? Rung::Gateway : *found.explanation->rung);
  const FoundExplanation better = Of(rung.finding);
  if (IsFailure(rung.state) && better.explanation != nullptr) found.explanation = better.explanation;
  return found;
}

std::wstring TitleOf(const FoundExplanation& found, AnswerLanguage language) {
  if (found.explanation == nullptr) return {};
  BothLanguages title = found.explanation->title;
  std::wstring number;
  if (found.message) {
    const MessageRow& row = RowOf(*found.message);
    number = L"[" + Decimal(row.id) + L"] ";
    const bool isEnd = IsEndOfSentence(row.english);
    title.english = ForTitle(row.english, isEnd ? L"… " : L"");
    if (row.japanese != nullptr) title.japanese = ForTitle(row.japanese, isEnd ? L"…" : L"");
  }
  const bool japanese = language == AnswerLanguage::Japanese;
  return number +
         (japanese ? title.japanese + L" / " + title.english : title.english + L" / " + title.japanese);
}

}  // namespace tarvik::report
