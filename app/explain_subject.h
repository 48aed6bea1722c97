#pragma once

#include <string>
#include <vector>

#include "report/answer.h"
#include "report/explanations.h"
#include "report/run.h"
#include "resources/messages.h"

namespace tarvik {

/// Finds what F1 explains. Everything outlives the object.
class ExplainSubject {
 public:
  /// `run`: the latest one. One that has not begun means nothing, for lines that no run of this PC reported.
  ExplainSubject(const report::Explanations& explanations, const Texts& texts, const report::Run& run,
                 report::AnswerLanguage language)
      : explanations_(explanations), texts_(texts), run_(run), answer_(report::AnswerOf(run, language)) {}

  /// What the run as a whole means; before the first run, how to begin. With the number of the message that
  /// reports it, if the run showed one.
  report::FoundExplanation Verdict() const;

  /// What is known about a rung, as its mark in the status bar shows it.
  report::FoundExplanation OfRung(report::Rung rung) const;

  /// A message box.
  report::FoundExplanation OfBox(const std::wstring& text) const;

  /// The line with that index. A line that does not say anything itself (an empty one, "-----", or a
  /// directory listing) means the nearest failed rung: that of the nearest line that reports a failure of the
  /// run, of two equally near ones the upper. Without such a line, a listing means itself, and any other line
  /// the verdict.
  report::FoundExplanation OfLine(const std::vector<std::wstring>& lines, size_t index) const;

 private:
  /// The same explanation with the number of the latest message of the run that leads to it.
  report::FoundExplanation WithNumber(const report::FoundExplanation& found) const;
  /// A line by itself; a line of the run as the run's findings explain it.
  report::FoundExplanation OfOneLine(const std::wstring& line) const;
  bool FailsNow(const report::FoundExplanation& found) const;

  const report::Explanations& explanations_;
  const Texts& texts_;
  const report::Run& run_;
  report::Answer answer_;
};

}  // namespace tarvik
