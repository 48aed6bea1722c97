#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "report/saved_report.h"
#include "tests/unit/report/report_builder.h"
#include "tests/unit/report/report_form.h"

namespace tarvik::report::test {

/// Both forms must be well formed. Returns the text with LF and without byte order mark.
inline std::string TextOf(const ReportSource& source) {
  EXPECT_EQ(ReportReader::HtmlProblem(SavedReportHtml(source)), "");
  std::string text = SavedReportText(source);
  EXPECT_EQ(ReportReader::TextProblem(text), "");
  std::erase(text, '\r');
  return "\n" + text.substr(3);
}

inline std::string TextOf(const report::Run& run, AnswerLanguage language = AnswerLanguage::English) {
  return TextOf(ReportBuilder(run, language).source);
}

inline size_t Count(const std::string& text, const std::string& what) {
  size_t count = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

}  // namespace tarvik::report::test
