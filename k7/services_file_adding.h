#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "k7/services_file.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "report/fmt_err_msg.h"
#include "report/message_boxes.h"

namespace tarvik {

/// A date and time by the PC's clock.
struct LocalTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;
  int hour = 0;
  int minute = 0;
};

/// Adds the entries that the services file at `path` lacks.
///
/// Dormant: no caller adds entries today. The program only checks the file (CheckServicesFile) and lets the
/// user edit it. Kept, and tested, for a caller that has to register the K7 Server's port.
class ServicesFileAdder {
 public:
  ServicesFileAdder(Files& files, CodePage& codePage, FmtErrMsg& errors, report::MessageBoxes& boxes,
                    std::wstring path);

  /// Looks for the entries as CheckServicesFile does, then appends one line for each that is missing. An
  /// entry without a port gets the lowest free one above the highest port in the file. The file is first
  /// copied to its own name plus `now` as a time stamp ("yyyymmddhhnn"); `now` also dates the lines. Stops at
  /// the first failure, with the file-error box. True when the file now has every entry.
  bool Add(std::span<ServiceEntry> entries, const LocalTime& now);

 private:
  bool AppendMissing(std::string_view bytes, std::span<ServiceEntry> entries, int32_t highestPort,
                     const LocalTime& now);
  bool AppendLine(const ServiceEntry& entry, const LocalTime& now);
  bool FailToAppend(const std::wstring& line);
  bool SetAttributes(uint32_t attributes);
  bool Fail(const std::wstring& message);

  Files& files_;
  CodePage& codePage_;
  FmtErrMsg& errors_;
  report::MessageBoxes& boxes_;
  std::wstring path_;
};

}  // namespace tarvik
