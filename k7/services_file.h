#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "about/fmt_err_msg.h"
#include "platform/boolean16.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "report/message_boxes.h"

namespace tarvik {

/// One service that is looked for in the services file.
struct ServiceEntry {
  std::wstring Name;
  int32_t PortNo = 0;  ///< in: the port, 0 = none; out: that of the line that bears the name
  std::wstring Protocol;
  Boolean16 NameExist;    ///< out: a line has this name and protocol
  Boolean16 PortNoExist;  ///< out: a line has this port, with any protocol
};

/// What the work on the services file takes.
struct ServicesFileTools {
  Files& files;
  CodePage& codePage;
  FmtErrMsg& errors;
  report::MessageBoxes& boxes;
};

/// A point in time by the PC's clock.
struct LocalTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
};

/// Looks for the entries in the bytes of a services file, which may be any. A line is data when its words,
/// between blanks, tabs and "/", begin with a name, a number and a protocol; every other line is skipped.
/// The highest port number of all data lines; 0 when there is none.
int32_t ScanServices(std::string_view bytes, std::span<ServiceEntry> entries, CodePage& codePage);

/// Looks for the entries in the file at `path`. Unless `checkOnly` is set, which leaves the file as it is,
/// adds a line at its end for each entry whose name it lacks; an entry without a port gets the next above the
/// file's highest that no other entry has. The file is first copied to its own name with `now` as a time
/// stamp, which also dates the lines. The first failure shows a message box and ends the work. True when the
/// file could be read and, unless `checkOnly` is set, every entry is in it.
bool CheckServicesFile(const ServicesFileTools& tools, const std::wstring& path,
                       std::span<ServiceEntry> entries, bool checkOnly, const LocalTime& now = {});

}  // namespace tarvik
