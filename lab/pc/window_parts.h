#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/control_ids.h"

namespace tarvik::lab {

/// The pages of the main window, in the order of the general edition's tabs.
enum class Page { Ping, Nexal, K7Api, K7Svc, Ftp };

/// A control of the main window and its name in scenario files.
struct WindowPart {
  const char* name;
  int id;
  Page page;
};

inline constexpr WindowPart kFields[] = {
    {"address", ID_cmbIPAddr, Page::Ping},
    {"ping count", ID_txtPingReqCount, Page::Ping},
    {"time-out", ID_txtNxlibTimeOut, Page::Nexal},
    {"TCP port", ID_txtTcpPortNo, Page::Nexal},
    {"access code", ID_txtAccessCode, Page::Nexal},
    {"test count", ID_txtK7ApiTestCount, Page::K7Api},
    {"K7 Server status", ID_lblK7ServerStatus, Page::K7Svc},
    {"K7 Server UDP port", ID_lblK7UdpPortNo, Page::K7Svc},
    {"user name", ID_txtFtpUsername, Page::Ftp},
    {"password", ID_txtFtpPasswd, Page::Ftp},
};

inline constexpr WindowPart kButtons[] = {
    {"Ping", ID_cmdPing, Page::Ping},
    {"All Test", ID_cmdAllTest, Page::Ping},
    {"Get CNC Info", ID_cmdGetInfo, Page::Nexal},
    {"K7 Test", ID_cmdK7Api, Page::K7Api},
    {"Connect Test", ID_cmdFtpConnect, Page::Ftp},
    {"FTP All Test", ID_cmdAllFtpTest, Page::Ftp},
};

inline constexpr WindowPart kCheckBoxes[] = {
    {"access code", ID_chkAccessCode, Page::Nexal},
};

/// The part of that name, or null.
template <typename Parts>
const WindowPart* FindPart(const Parts& parts, std::string_view name) {
  const auto* const found = std::find_if(std::begin(parts), std::end(parts),
                                         [name](const WindowPart& part) { return part.name == name; });
  return found == std::end(parts) ? nullptr : found;
}

}  // namespace tarvik::lab
