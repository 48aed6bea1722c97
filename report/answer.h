#pragma once

#include <array>
#include <string>

#include "report/finding.h"
#include "report/finding_texts.h"
#include "report/run.h"
#include "report/rung.h"

namespace tarvik::report {

/// What is shown about one rung.
struct RungFinding {
  Finding finding = Finding::NotTested;
  RungState state = RungState::NotTested;
  std::wstring text;  ///< "Target: 2 of 4 echoes answered, slowest 31 ms. Check cable and plugs."
};

/// What is shown about a run: one sentence, which ends in the first thing to do, and every rung.
struct Answer {
  Finding finding = Finding::NotTested;  ///< that of the sentence
  Rung rung = Rung::Name;                ///< to which the sentence belongs
  std::wstring sentence;                 ///< at most kMaxSentenceColumns; empty before the first run
  std::array<RungFinding, kRungCount> rungs;

  const RungFinding& Of(Rung which) const { return rungs[static_cast<size_t>(which)]; }
};

/// Derives the answer from the facts alone.
Answer AnswerOf(const Run& run, AnswerLanguage language);

/// The finding about the rung in words.
RungFinding Described(const Run& run, Rung rung, Finding finding, AnswerLanguage language);

/// What the facts of one rung mean.
Finding FindingOf(const Run& run, Rung rung);

}  // namespace tarvik::report
