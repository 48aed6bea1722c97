#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/answer.h"
#include "report/explanations.h"
#include "report/finding_texts.h"
#include "report/run.h"
#include "resources/messages.h"

namespace tarvik::report {

/// A date and time of day in the PC's own time zone. Months and days count from 1.
struct LocalTime {
  int32_t year = 0;
  int32_t month = 0;
  int32_t day = 0;
  int32_t hour = 0;
  int32_t minute = 0;
};

/// Everything that a report is made from. An empty text is unknown and left out. What the references and
/// pointers refer to outlives the object.
struct ReportSource {
  const Run& run;
  const Answer& answer;  ///< of the run, in the same language
  AnswerLanguage language = AnswerLanguage::English;
  std::wstring program{};                      ///< "Tarvik 1.1"
  std::wstring edition{};                      ///< as the about box names it
  std::wstring windows{};                      ///< its version
  std::wstring timeZone{};                     ///< "UTC+09:00"
  std::vector<std::wstring> libraries{};       ///< one each: "name version" or "name not found"
  std::wstring k7UdpPort{};                    ///< of the K7 server, as page K7 Svc shows it
  LocalTime made{};                            ///< when the report is made
  const Explanations* explanations = nullptr;  ///< the steps of "do next"; null = only the first one
  const Texts* texts = nullptr;                ///< to find the number of a message; null = no number
  /// What must not appear: the FTP user name and password as typed, the Windows user name. Servers repeat
  /// them in replies. Whole words in lines and message boxes are replaced by "***", whatever their case.
  std::vector<std::wstring> secrets{};
};

}  // namespace tarvik::report
