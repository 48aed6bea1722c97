#pragma once

#include <optional>
#include <string>
#include <vector>

#include "report/report_source.h"

namespace tarvik::report {

/// One of two texts that are compiled in.
inline const wchar_t* In(AnswerLanguage language, const wchar_t* english, const wchar_t* japanese) {
  return language == AnswerLanguage::Japanese ? japanese : english;
}

/// Where the PC is connected towards the target, as far as that is known; what is not is empty.
struct OwnPlace {
  std::wstring address;
  std::wstring prefix;  ///< "/24"; a mask with gaps as it is: "/255.0.255.0"
  std::wstring card;

  /// "192.168.1.10/24"
  std::wstring Network() const { return address + prefix; }
};

/// As the run read it; an earlier run's may have changed since.
OwnPlace OwnPlaceOf(const Run& run);

/// The target's address, if the run itself has it; otherwise empty.
std::wstring ResolvedNow(const Run& run);

/// The target as typed, and its address where that is a name: "cnc7 (192.168.1.100)"; "?" when nothing was
/// typed. A name is cut after `maxName`.
std::wstring TargetText(const Run& run, size_t maxName);

/// What the run itself found out about the rung. The answer also knows what earlier runs did. Names an
/// address other than the run's.
RungFinding FoundNow(const ReportSource& source, Rung rung);

/// The rung that the answer is about; nothing when it is about several or none.
std::optional<Rung> DecidingRung(const Answer& answer);

/// "OK", "FAIL Target", "DOUBT Gateway", "STOPPED", "RUNNING", "NOT TESTED".
std::wstring VerdictText(const ReportSource& source, AnswerLanguage language);

/// The rung's name in full-width letters.
const wchar_t* WideNameOf(Rung rung, AnswerLanguage language);

/// MarkOf with a plain hyphen, which is one column wide everywhere, for the English dash.
const wchar_t* PlainMark(RungState state, AnswerLanguage language);

/// What to do next, one step each; never empty.
std::vector<std::wstring> NextSteps(const ReportSource& source);

/// What firewalls must let through for the rungs of this run, one line each.
std::vector<std::wstring> NeededTraffic(const ReportSource& source);

/// When the run ended, or when the report is made if it has not.
const LocalTime& TimeOfRun(const ReportSource& source);

/// "2026-11-22"
std::wstring DateText(const LocalTime& time);
/// "14:32"
std::wstring TimeText(const LocalTime& time);

}  // namespace tarvik::report
