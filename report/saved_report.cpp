#include "report/saved_report.h"

#include "platform/text.h"
#include "report/copied_report.h"

namespace tarvik::report {

std::string SavedReportHtml(const ReportSource& source) {
  return "<!DOCTYPE html><title>" + NarrowAscii(source.program) + "</title>";
}

std::string SavedReportText(const ReportSource& source) {
  return "\xEF\xBB\xBF" + NarrowAscii(CopiedReport(source));
}

std::wstring ReportFileName(const ReportSource& /*source*/) { return L"Tarvik"; }

}  // namespace tarvik::report
