#include "report/copied_report.h"

namespace tarvik::report {

std::wstring SummaryLine(const ReportSource& source) { return source.program; }

std::wstring CopiedReport(const ReportSource& source) { return SummaryLine(source) + L"\r\n"; }

}  // namespace tarvik::report
