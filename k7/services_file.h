#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/boolean16.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "report/fmt_err_msg.h"
#include "report/message_boxes.h"

namespace tarvik {

/// A service to look for in the Windows services file.
struct ServiceEntry {
  std::wstring Name;   ///< compared case-sensitively
  int32_t PortNo = 0;  ///< in: the port, 0 = not known; out: the port of the line with this name and protocol
  std::wstring Protocol;  ///< "udp" or "tcp", compared case-sensitively
  Boolean16 NameExist;    ///< out: a line has this name and protocol
  Boolean16 PortNoExist;  ///< out: a line has this port, with any protocol
};

/// Looks for the entries in the content of a services file, which may be any bytes. A line counts when its
/// words, separated by spaces, tabs and "/", start with a name, a port number and a protocol; all others are
/// skipped. Returns the highest port number in the file; 0 when it has none.
int32_t ScanServices(std::string_view bytes, std::span<ServiceEntry> entries, CodePage& codePage);

/// Looks for the entries in the file at `path`. A file that cannot be read is reported in the file-error box
/// and leaves the entries as they are.
void CheckServicesFile(Files& files, CodePage& codePage, FmtErrMsg& errors, report::MessageBoxes& boxes,
                       const std::wstring& path, std::span<ServiceEntry> entries);

/// The content of the services file; nothing, after the file-error box, when it cannot be read.
std::optional<std::string> ReadServicesFile(Files& files, FmtErrMsg& errors, report::MessageBoxes& boxes,
                                            const std::wstring& path);

/// The file-error box: shows the message, followed on a new line by the number and text of the latest file
/// call's error, if there was one.
void ShowFileError(Files& files, FmtErrMsg& errors, report::MessageBoxes& boxes, std::wstring message);

}  // namespace tarvik
