#pragma once

#include <cstddef>
#include <string>

#include "report/report_source.h"

namespace tarvik::report {

/// The most lines that a copied report has.
inline constexpr size_t kMaxCopiedLines = 20;

/// The line that sums up a run:
/// "Tarvik 1.1 | 192.168.1.100 | FAIL Target [115] | 0 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32".
/// [115] is the number of the message that the rung listed.
std::wstring SummaryLine(const ReportSource& source);

/// A message about the run, short enough to be read aloud: the summary, the rungs of the run, what to do
/// next, what IT must allow. At most kMaxCopiedLines lines, each followed by "\r\n".
std::wstring CopiedReport(const ReportSource& source);

}  // namespace tarvik::report
