#pragma once

#include <string>

#include "report/report_source.h"

namespace tarvik::report {

/// The whole report as one HTML file in UTF-8, without script and without references to other files. Texts of
/// servers and libraries appear as text only. Very long lines and lists are shortened, with a note.
std::string SavedReportHtml(const ReportSource& source);

/// The same as plain text in UTF-8 with byte order mark; lines end with CR LF.
std::string SavedReportText(const ReportSource& source);

/// The file name that is proposed, without extension: "Tarvik_192.168.1.100_2026-11-22_1432_FAIL-Target". In
/// every language alike and without characters that Windows forbids.
std::wstring ReportFileName(const ReportSource& source);

}  // namespace tarvik::report
