#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/report_source.h"

namespace tarvik::report {

enum class LinkState { Unknown, Good, Doubtful, Failed };

/// One place on the way to the controller, and the link that leads to it.
struct WayNode {
  std::wstring name;                ///< "PC", "GW", "CNC", "FTP"
  std::vector<std::wstring> facts;  ///< addresses, the card, the port
  bool known = true;                ///< its address is known
  LinkState link = LinkState::Unknown;
  std::wstring word;  ///< what is wrong with the link; never empty when it failed
};

/// The way from the PC to the controller and its services, as far as the run saw it. A gateway is part of it
/// only when the target is known to be on another subnet.
struct Way {
  std::vector<WayNode> nodes;  ///< from the PC to the controller; the PC's own link is unused
  std::vector<WayNode> services;
};

Way WayOf(const ReportSource& source);

/// The way in text: "PC === GW === x CNC", what is wrong, one line for each service and for each node. Lines
/// are separated by "\n".
std::wstring WayText(const Way& way);

/// Appends the same as an SVG picture. `alternative` describes it to those who do not see it.
void AppendWaySvg(std::string& out, const Way& way, std::wstring_view alternative);

}  // namespace tarvik::report
