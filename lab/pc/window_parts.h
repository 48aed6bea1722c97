#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

#include "app/control_ids.h"

namespace tarvik::lab {

// The window classes of the program.
inline constexpr char kMainWindowClass[] = "Form1";
inline constexpr char kPmcWindowClass[] = "frmPmcTest";
inline constexpr char kAboutBoxClass[] = "frmAbout";
inline constexpr char kExplainWindowClass[] = "frmExplain";
/// Windows' own class of an open menu.
inline constexpr char kOpenMenuClass[] = "#32768";

/// The pages of the main window, in the order of the general edition's tabs.
enum class Page { Ping, Nexal, K7Api, K7Svc, Ftp };

/// A control of the main window.
struct WindowPart {
  const char* name;  ///< in scenario files and in the monkey's log
  int id;
  Page page;  ///< the address is visible on every page
};

inline constexpr WindowPart kFields[] = {
    {"address", ID_cmbIPAddr, Page::Ping},          {"ping count", ID_txtPingReqCount, Page::Ping},
    {"time-out", ID_txtNxlibTimeOut, Page::Nexal},  {"TCP port", ID_txtTcpPortNo, Page::Nexal},
    {"access code", ID_txtAccessCode, Page::Nexal}, {"test count", ID_txtK7ApiTestCount, Page::K7Api},
    {"user name", ID_txtFtpUsername, Page::Ftp},    {"password", ID_txtFtpPasswd, Page::Ftp},
};

/// Texts that the user cannot edit.
inline constexpr WindowPart kLabels[] = {
    {"K7 Server status", ID_lblK7ServerStatus, Page::K7Svc},
    {"K7 Server UDP port", ID_lblK7UdpPortNo, Page::K7Svc},
};

inline constexpr WindowPart kCheckBoxes[] = {
    {"access code", ID_chkAccessCode, Page::Nexal},
};

/// The buttons that start a run.
inline constexpr WindowPart kButtons[] = {
    {"Ping", ID_cmdPing, Page::Ping},
    {"All Test", ID_cmdAllTest, Page::Ping},
    {"Get CNC Info", ID_cmdGetInfo, Page::Nexal},
    {"K7 Test", ID_cmdK7Api, Page::K7Api},
    {"Connect Test", ID_cmdFtpConnect, Page::Ftp},
    {"FTP All Test", ID_cmdAllFtpTest, Page::Ftp},
};

/// The buttons that control the K7 server. Scenarios cannot click them: what they start is not a run.
inline constexpr WindowPart kK7ServiceButtons[] = {
    {"Stop K7 Server", ID_cmdStartStopK7Server_0, Page::K7Svc},
    {"Start K7 Server", ID_cmdStartStopK7Server_1, Page::K7Svc},
    {"Debug K7 Server", ID_cmdK7ServerDebug, Page::K7Svc},
};

/// The part of that name, or null.
template <typename Parts>
const WindowPart* FindPart(const Parts& parts, std::string_view name) {
  const auto* const found = std::find_if(std::begin(parts), std::end(parts),
                                         [name](const WindowPart& part) { return part.name == name; });
  return found == std::end(parts) ? nullptr : found;
}

/// The part of that name whose text can be read: a field or a label; or null.
inline const WindowPart* FindText(std::string_view name) {
  const WindowPart* const field = FindPart(kFields, name);
  return field != nullptr ? field : FindPart(kLabels, name);
}

}  // namespace tarvik::lab
