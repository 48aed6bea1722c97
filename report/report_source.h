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

/// Everything that a report is made from. An empty text is unknown and left out. What the references and
/// pointers refer to outlives the object.
struct ReportSource {
  const Run& run;
  const Answer& answer;  ///< of the run, in the same language
  AnswerLanguage language = AnswerLanguage::English;
  std::wstring program{};                      ///< "Tarvik 1.1"
  std::wstring edition{};                      ///< "general edition, 32-bit"
  std::wstring windows{};                      ///< its version
  std::wstring timeZone{};                     ///< "UTC+09:00"; empty = Windows does not report it
  std::vector<std::wstring> libraries{};       ///< one each: "name version" or "name not found"
  std::wstring k7UdpPort{};                    ///< on which the K7 server listens, as page K7 Svc shows it
  LocalTime made{};                            ///< when the report is made
  const Explanations* explanations = nullptr;  ///< the steps of "do next"; null = only the first one
  const Texts* texts = nullptr;                ///< to find the number of a message; null = no number
  /// What must not appear: the FTP user name and password as typed, the Windows user name. Servers repeat
  /// them in replies. Whole words in replies and message boxes are replaced by "***", whatever their case.
  std::vector<std::wstring> secrets{};
};

}  // namespace tarvik::report
