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
/// Leaves room in the field for the address, which must not be cut.
constexpr size_t kMaxSummaryName = 40;

/// " [115]", the number of the last message that reported the rung's failure; empty without such a message.
std::wstring NumberOfMessage(const ReportSource& source, Rung rung) {
  if (source.explanations == nullptr || source.texts == nullptr) return {};
  const Explanations& known = *source.explanations;
  const std::vector<std::wstring> patterns = known.FailurePatterns(rung, *source.texts);
  const std::vector<RunLine>& lines = source.run.lines;
  for (size_t back = 1; back <= lines.size(); ++back) {
    const std::wstring& line = lines[lines.size() - back].text;
    if (line.empty() || line.size() > kMaxCopiedLength) continue;
    const auto matches = [&line](const std::wstring& pattern) { return MatchesPattern(line, pattern); };
    if (std::ranges::none_of(patterns, matches)) continue;
    const FoundExplanation found = known.OfLine(line, *source.texts);
    if (found.message && found.explanation->rung == rung && known.ReportsFailure(found))
      return Joined({L" [", Decimal(RowOf(*found.message).id).c_str(), L"]"});
  }
  return {};
}

/// The words for WithFacts that say in a few numbers what the rung saw; empty when it saw nothing.
std::wstring EvidenceWords(const Facts& facts, Rung rung, AnswerLanguage language) {
  const FtpFacts& ftp = facts.ftp;
  const bool connected = ftp.connectMs > 0 || ftp.connectError != 0 || ftp.loggedIn;
  const EchoSeries& echoes = EchoesOf(facts, rung);
  switch (rung) {
    case Rung::CncLibrary:
      if (facts.cnc.port <= 0) return {};
      return facts.cnc.result == 0 ? L"TCP %P" : In(language, L"TCP %P, error %B", L"TCP %P、エラー%B");
    case Rung::K7:
      if (facts.k7.failed != K7Call::None) return In(language, L"error %K", L"エラー%K");
      return facts.k7.answers == 0 ? L"" : In(language, L"live %V of %U", L"Live %V/%U");
    case Rung::Ftp:
      if (!ftp.loginReply.empty()) return In(language, L"reply %c", L"FTP応答コード%c");
      return connected ? L"TCP 21" : L"";
    case Rung::Gateway:
      if (facts.gateway.tried.empty()) return {};
      [[fallthrough]];
    case Rung::Target:
      // Not "%S", which is what the user asked for while the run is active.
      if (echoes.sent == 0) return {};
      return In(language, L"%N of ", L"応答%N/") + Decimal(echoes.sent);
    default:
      return {};
  }
}

/// What the summary gives as evidence: about the rung that decided, or about the ping of a run that says the
/// same of several rungs.
std::wstring EvidenceOf(const ReportSource& source, std::optional<Rung> rung) {
  const RungState state = RowOf(source.answer.finding).state;
  if (!rung && (state == RungState::Good || state == RungState::Stopped)) rung = Rung::Target;
  if (!rung || !source.run.Planned(*rung)) return {};
  const std::wstring words = EvidenceWords(source.run.facts, *rung, source.language);
  return WithFacts(words.c_str(), source.run, *rung, source.language);
}

}  // namespace

std::wstring SummaryLine(const ReportSource& source) {
  const Run& run = source.run;
  const AnswerLanguage language = source.language;
  const std::optional<Rung> rung = DecidingRung(source.answer);
  const RungState state = RowOf(source.answer.finding).state;
  const bool failed = !run.active && (state == RungState::Failed || state == RungState::Doubtful);
  const OwnPlace own = OwnPlaceOf(run);
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
  add(TargetText(run, kMaxSummaryName));
  std::wstring verdict = VerdictText(source, language);
  if (rung && failed) verdict += NumberOfMessage(source, *rung);
  add(verdict);
  add(EvidenceOf(source, rung));
  add(from);
  add(TimeText(TimeOfRun(source)));
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
    if (!source.run.Planned(rung)) continue;
    const RungFinding found = FoundNow(source, rung);
    add(Joined({PlainMark(found.state, language), L" ", found.text.c_str()}));
  }
  if (lines == 1) add(In(language, L"No test has run yet.", L"まだテストしていない。"));
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
