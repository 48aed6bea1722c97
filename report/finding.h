#pragma once

#include <array>
#include <string>

#include "report/run.h"
#include "report/rung.h"
#include "resources/messages.h"

namespace tarvik::report {

/// What the facts of a rung, or of a whole run, mean. finding_texts.cpp has the texts of each.
enum class Finding { NotTested };

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
  std::wstring sentence;                 ///< at most 60 columns; a Japanese character counts as two
  std::array<RungFinding, kRungCount> rungs;
};

/// The languages of the built-in texts of the answer.
enum class AnswerLanguage { English, Japanese };

/// Derives the answer from the facts alone.
Answer AnswerOf(const Run& run, AnswerLanguage language);

/// "OK", "!", "FAIL" or an en dash; in Japanese a circle, a triangle, a cross or a dash.
const wchar_t* MarkOf(RungState state, AnswerLanguage language);

/// The rung's name as the status bar shows it.
const wchar_t* NameOf(Rung rung, AnswerLanguage language);

}  // namespace tarvik::report
