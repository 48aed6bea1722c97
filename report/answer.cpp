#include "report/answer.h"

#include <algorithm>
#include <optional>

#include "report/finding_words.h"
#include "report/findings.h"

namespace tarvik::report {
namespace {

constexpr Rung RungAt(int index) { return static_cast<Rung>(index); }

Progress ProgressOf(const Facts& facts, Rung rung) {
  const Progress all[] = {facts.name.progress,   facts.pc.progress,  facts.gateway.progress,
                          facts.target.progress, facts.cnc.progress, facts.k7.progress,
                          facts.ftp.progress};
  static_assert(sizeof all / sizeof *all == kRungCount);
  return all[static_cast<size_t>(rung)];
}

Finding EndedFinding(const Facts& facts, Rung rung) {
  constexpr Finding (*kAll[])(const Facts&) = {NameFinding, PcFinding, GatewayFinding, TargetFinding,
                                               CncFinding,  K7Finding, FtpFinding};
  return kAll[static_cast<size_t>(rung)](facts);
}

Finding RunningFinding(const Facts& facts, Rung rung) {
  if (rung == Rung::K7 && facts.k7.asked > 0) return Finding::RunningK7;
  if (rung == Rung::CncLibrary && facts.cnc.timeOutSeconds <= 0) return Finding::RunningCncBegins;
  constexpr Finding kAll[] = {Finding::RunningName,   Finding::RunningPc,  Finding::RunningGateway,
                              Finding::RunningTarget, Finding::RunningCnc, Finding::RunningK7Connect,
                              Finding::RunningFtp};
  return kAll[static_cast<size_t>(rung)];
}

/// The finding for a library that is not on this PC.
Finding MissingFinding(Rung rung) {
  if (rung == Rung::CncLibrary) return Finding::CncLibraryMissing;
  return rung == Rung::K7 ? Finding::K7LibraryMissing : Finding::FtpLibraryMissing;
}

bool HasBegun(const Run& run) { return run.active || run.end != RunEnd::None; }

/// A doubt that explains the failure of a higher rung.
bool Explains(Finding finding) {
  switch (finding) {
    case Finding::AddressZeros:
    case Finding::PcIsTarget:
    case Finding::PcMaskNarrow:
    case Finding::PcTwoCards:
    case Finding::GatewayLossy:
    case Finding::GatewayRefused:
    case Finding::GatewayElsewhere:
    case Finding::TargetLossy:
    case Finding::TargetElsewhere:
    case Finding::TargetNoRoute:
    case Finding::TargetUnreachable:
    case Finding::TargetFirewall:
    case Finding::TargetLoop:
      return true;
    default:
      return false;
  }
}

/// A failure that needs no other explanation: the controller or this PC says what is wrong.
bool ExplainsItself(Finding finding) {
  switch (finding) {
    case Finding::CncCodeMissing:
    case Finding::CncCodeNeeded:
    case Finding::CncCodeWrong:
    case Finding::CncOptionMissing:
    case Finding::K7CountInvalid:
    case Finding::K7ServerUnknown:
    case Finding::FtpLoginRefused:
    case Finding::FtpUserMissing:
    case Finding::FtpFull:
      return true;
    default:
      return false;
  }
}

/// What the rungs of a run mean together.
class Conclusion {
 public:
  explicit Conclusion(const Run& run) : run_(run) {}

  /// Sets the finding of the sentence and its rung.
  void Draw(Answer& answer) const;

 private:
  template <typename Condition>
  std::optional<Rung> First(Condition condition) const {
    for (int index = 0; index < kRungCount; ++index)
      if (run_.Planned(RungAt(index)) && condition(RungAt(index))) return RungAt(index);
    return std::nullopt;
  }
  std::optional<Rung> FirstIn(RungState state) const {
    return First([this, state](Rung rung) { return StateOf(rung) == state; });
  }
  RungState StateOf(Rung rung) const { return RowOf(FindingOf(run_, rung)).state; }

  std::optional<Rung> Explanation() const;
  std::optional<Rung> Failure() const;
  bool WasStopped() const;
  /// The rung whose finding is the sentence; nothing when the sentence is about several.
  std::optional<Rung> Decisive() const;
  Finding OfSeveral() const;
  bool DrawRunning(Answer& answer) const;

  const Run& run_;
};

std::optional<Rung> Conclusion::Explanation() const {
  return First([this](Rung rung) { return Explains(FindingOf(run_, rung)); });
}

std::optional<Rung> Conclusion::Failure() const {
  const std::optional<Rung> failed = FirstIn(RungState::Failed);
  if (!failed || ExplainsItself(FindingOf(run_, *failed))) return failed;
  const std::optional<Rung> explanation = Explanation();
  return explanation && *explanation < *failed ? explanation : failed;
}

bool Conclusion::WasStopped() const {
  const auto unfinished = [this](Rung rung) { return ProgressOf(run_.facts, rung) != Progress::Ended; };
  return (run_.end == RunEnd::Stopped && First(unfinished)) || FirstIn(RungState::Stopped);
}

std::optional<Rung> Conclusion::Decisive() const {
  if (const auto failure = Failure()) return failure;
  if (run_.end == RunEnd::Error || WasStopped()) return std::nullopt;
  const auto count = First([this](Rung rung) {
    const Finding finding = FindingOf(run_, rung);
    return finding == Finding::PingCountZero || finding == Finding::K7CountZero;
  });
  if (count) return count;
  if (const auto explanation = Explanation()) return explanation;
  if (const auto doubtful = FirstIn(RungState::Doubtful)) return doubtful;
  if (const auto missing = FirstIn(RungState::LibraryMissing)) return missing;
  // A single page, whose sentence has more to say than "All 1 rungs good".
  const auto beyondPing = [this](Rung rung) {
    return rung > Rung::Target && StateOf(rung) == RungState::Good;
  };
  const std::optional<Rung> higher = First(beyondPing);
  if (!higher) return First([](Rung rung) { return rung == Rung::Target; });
  return run_.Planned(Rung::Target) ? std::nullopt : higher;
}

Finding Conclusion::OfSeveral() const {
  if (run_.end == RunEnd::Error) return Finding::Broken;
  if (!WasStopped()) return Finding::AllGood;
  const bool partly =
      First([this](Rung rung) {
        const RungState state = StateOf(rung);
        return rung >= Rung::Target && (state == RungState::Good || state == RungState::Doubtful);
      }).has_value();
  return partly ? Finding::StoppedPartly : Finding::Stopped;
}

bool Conclusion::DrawRunning(Answer& answer) const {
  if (!run_.active) return false;
  std::optional<Rung> rung = FirstIn(RungState::Running);
  // After a failure the run may still look for its cause.
  if (!rung && FirstIn(RungState::Failed)) return false;
  if (!rung) rung = First([this](Rung each) { return ProgressOf(run_.facts, each) == Progress::NotStarted; });
  if (!rung) return false;
  answer.rung = *rung;
  answer.finding = RunningFinding(run_.facts, *rung);
  return true;
}

void Conclusion::Draw(Answer& answer) const {
  if (!HasBegun(run_) || DrawRunning(answer)) return;
  const std::optional<Rung> rung = Decisive();
  answer.rung = rung.value_or(Rung::Name);
  answer.finding = rung ? FindingOf(run_, *rung) : OfSeveral();
  if (answer.finding == Finding::CncGood && TargetFinding(run_.facts) == Finding::TargetPingBlocked)
    answer.finding = Finding::CncGoodWithoutPing;
}

/// Ends a sentence that the texts leave open.
std::wstring Sentence(const std::wstring& words, AnswerLanguage language) {
  return words.empty() ? words : words + (language == AnswerLanguage::Japanese ? L"。" : L".");
}

std::wstring Capitalised(std::wstring words) {
  if (!words.empty() && words[0] >= L'a' && words[0] <= L'z') words[0] += L'A' - L'a';
  return words;
}

std::wstring SentenceOf(const Run& run, const Answer& answer, AnswerLanguage language) {
  const FindingWords& words = RowOf(answer.finding).In(language);
  const std::wstring what = WithFacts(words.what, run, answer.rung, language);
  const std::wstring todo = WithFacts(words.todo, run, answer.rung, language);
  if (todo.empty() || language == AnswerLanguage::Japanese)
    return Sentence(what, language) + Sentence(todo, language);
  return what + L": " + Sentence(todo, language);
}

std::wstring WholeText(const Run& run, Rung rung, Finding finding, AnswerLanguage language) {
  const FindingWords& words = RowOf(finding).In(language);
  const bool japanese = language == AnswerLanguage::Japanese;
  const std::wstring detail =
      WithFacts(words.detail == nullptr ? words.what : words.detail, run, rung, language);
  const std::wstring todo = Capitalised(WithFacts(words.todo, run, rung, language));
  return NameOf(rung, language) + std::wstring(japanese ? L"：" : L": ") + Sentence(detail, language) +
         (japanese || todo.empty() ? L"" : L" ") + Sentence(todo, language);
}

}  // namespace

Finding FindingOf(const Run& run, Rung rung) {
  switch (ProgressOf(run.facts, rung)) {
    case Progress::NotStarted:
      if (run.LibraryMissing(rung)) return MissingFinding(rung);
      if (!HasBegun(run)) return Finding::NotTested;
      if (!run.Planned(rung)) return Finding::NotInThisRun;
      return run.active ? Finding::NotTested : Finding::NotReached;
    case Progress::Running:
      if (run.active) return RunningFinding(run.facts, rung);
      return run.end == RunEnd::Stopped ? Finding::Stopped : Finding::Broken;
    case Progress::Stopped:
      return Finding::Stopped;
    case Progress::Ended:
      break;
  }
  return EndedFinding(run.facts, rung);
}

RungFinding Described(const Run& run, Rung rung, Finding finding, AnswerLanguage language) {
  return {finding, RowOf(finding).state, WholeText(run, rung, finding, language)};
}

Answer AnswerOf(const Run& run, AnswerLanguage language) {
  Answer answer;
  Conclusion(run).Draw(answer);
  if (answer.finding != Finding::NotTested) answer.sentence = SentenceOf(run, answer, language);
  for (int index = 0; index < kRungCount; ++index)
    answer.rungs[static_cast<size_t>(index)] =
        Described(run, RungAt(index), FindingOf(run, RungAt(index)), language);
  return answer;
}

}  // namespace tarvik::report
