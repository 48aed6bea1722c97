#include "report/copied_report.h"

#include <algorithm>

#include "platform/text.h"
#include "report/finding_words.h"
#include "report/report_parts.h"
#include "report/report_text.h"

namespace tarvik::report {
namespace {

/// Longer ones cannot be read aloud.
constexpr size_t kMaxCopiedLength = 300;
constexpr size_t kMaxSummaryField = 64;

/// A verdict has its lines at the end of the run.
constexpr size_t kMaxLinesSearched = 100;

/// " [115]", the number of the last message that the rung listed; empty when it listed none.
std::wstring NumberOfMessage(const ReportSource& source, Rung rung) {
  if (source.explanations == nullptr || source.texts == nullptr) return {};
  const std::vector<RunLine>& lines = source.run.lines;
  for (size_t back = 1; back <= std::min(lines.size(), kMaxLinesSearched); ++back) {
    const std::wstring& line = lines[lines.size() - back].text;
    if (line.empty() || line.size() > kMaxCopiedLength) continue;
    const FoundExplanation found = source.explanations->OfLine(line, *source.texts);
    if (found.message && found.explanation->rung == rung)
      return Joined({L" [", Decimal(RowOf(*found.message).id).c_str(), L"]"});
  }
  return {};
}

/// The words for WithFacts that say in a few numbers what the rung saw; empty when it saw nothing.
const wchar_t* EvidenceWords(const Facts& facts, Rung rung, AnswerLanguage language) {
  switch (rung) {
    case Rung::CncLibrary:
      if (facts.cnc.port <= 0) return L"";
      return facts.cnc.result == 0 ? L"TCP %P" : In(language, L"TCP %P, error %B", L"TCP %P、エラー%B");
    case Rung::K7:
      if (facts.k7.failed != K7Call::None) return In(language, L"error %K", L"エラー%K");
      return facts.k7.answers == 0 ? L"" : In(language, L"live %V of %U", L"Live %V/%U");
    case Rung::Ftp:
      return facts.ftp.loginReply.empty() ? L"TCP 21" : In(language, L"reply %c", L"応答%c");
    default:
      return EchoesOf(facts, rung).sent == 0 ? L"" : In(language, L"%N of %S", L"応答%N/%S");
  }
}

}  // namespace

std::wstring SummaryLine(const ReportSource& source) {
  const Run& run = source.run;
  const AnswerLanguage language = source.language;
  const std::optional<Rung> rung = DecidingRung(source.answer);
  const RungState state = RowOf(source.answer.finding).state;
  const bool failed = !run.active && (state == RungState::Failed || state == RungState::Doubtful);
  const wchar_t* const evidence = EvidenceWords(run.facts, rung.value_or(Rung::Target), language);
  const OwnPlace own = OwnPlaceOf(run.facts);
  const std::wstring network = own.Network();
  const wchar_t* const space = network.empty() || own.card.empty() ? L"" : L" ";
  std::wstring from = Joined({network.c_str(), space, own.card.c_str()});
  if (!from.empty()) from.insert(0, In(language, L"from ", L"PC "));

  std::wstring line = source.program;
  const auto add = [&line](std::wstring_view field) {
    if (field.empty()) return;
    line += L" | ";
    AppendOneLine(line, field, kMaxSummaryField);
  };
  add(TargetText(run));
  std::wstring verdict = VerdictText(source, language);
  if (rung && failed) verdict += NumberOfMessage(source, *rung);
  add(verdict);
  add(WithFacts(evidence, run, rung.value_or(Rung::Target), language));
  add(from);
  add(TimeText(source.made));
  return line;
}

std::wstring CopiedReport(const ReportSource& source) {
  const AnswerLanguage language = source.language;
  std::wstring report;
  size_t lines = 0;
  const auto add = [&report, &lines](std::wstring_view line) {
    AppendOneLine(report, line, kMaxCopiedLength);
    report += L"\r\n";
    ++lines;
  };
  add(SummaryLine(source));
  for (int index = 0; index < kRungCount; ++index) {
    const auto rung = static_cast<Rung>(index);
    const RungFinding& found = source.answer.Of(rung);
    if (source.run.Planned(rung)) add(Joined({PlainMark(found.state, language), L" ", found.text.c_str()}));
  }
  if (lines == 1) add(In(language, L"No test has run yet.", L"まだテストしていません。"));
  if (source.answer.finding == Finding::Broken && !source.run.boxes.empty())
    add(Masked(source.run.boxes.back().text, source.secrets));

  const std::vector<std::wstring> traffic = NeededTraffic(source);
  const std::vector<std::wstring> steps = NextSteps(source);
  const size_t others = lines + (traffic.empty() ? 0 : traffic.size() + 1);
  const size_t shown = std::min(steps.size(), kMaxCopiedLines - others);
  for (size_t i = 0; i < shown; ++i) {
    std::wstring line = i == 0 ? In(language, L"Do next: ", L"次の手順：") : L"";
    if (steps.size() > 1) line += Decimal(static_cast<int64_t>(i) + 1) + L". ";
    add(line + steps[i]);
  }
  if (!traffic.empty()) add(In(language, L"IT must allow:", L"IT部門に許可を依頼："));
  for (const std::wstring& line : traffic) add(line);
  return report;
}

}  // namespace tarvik::report
