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
#include "ui/message_boxes.h"

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
  ui::MessageBoxes& boxes;
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

/// The same for the file at `path`, which stays as it is. A file that cannot be read has its message box.
void CheckServicesFile(const ServicesFileTools& tools, const std::wstring& path,
                       std::span<ServiceEntry> entries);

/// Looks for the entries in the file, and adds a line at its end for each whose name it lacks; one without
/// a port gets the next above all others. The file is copied before, to its own name with the time behind.
/// The first failure has its message box and ends the work. True when nothing is missing any more.
bool AddMissingServices(const ServicesFileTools& tools, const std::wstring& path,
                        std::span<ServiceEntry> entries, const LocalTime& now);

}  // namespace tarvik
