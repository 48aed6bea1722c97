#include "lab/fault_page.h"

#include <algorithm>
#include <string_view>

#include "lab/scenario_words.h"

namespace tarvik::lab {
namespace {

constexpr std::string_view kIntroduction =
    R"(<!-- Made from lab/scenarios by build/native/lab/fault_page; a change is made there. -->

# Faults, and what Tarvik says of them

Every fault on this page has really been made in the laboratory, on a network of its own with real servers, and
Tarvik was tested on it: the lines are what it says, to the letter. `N` stands for a measured time.

The laboratory's PC has the address 192.168.1.10/24, its gateway is 192.168.1.1. One controller is on the PC's own
subnet, 192.168.1.100; another behind the gateway, 192.168.2.100. Your addresses are others, the lines are the same.
The numbers behind "Allocate Handle error=" and "SystemError=" come from the library. Those below zero are the practice
bench's: -102 no connection, -103 time-out, -104 connection lost, -105 an answer that makes no sense. The library of your
PC may have others. Access codes and passwords in a command line are encoded; here they are written backwards.

The laboratory runs Tarvik under Wine. For a dead host on the PC's own subnet, Windows may report "Destination Host
Unreachable" where this page shows "ICMP_Error:11010". Such a report counts as an answer, so the check may go on and
stop only at a later step. Read each reply line to its end: only one with "bytes=" comes from a host that works.

Type addresses without zeros in front: 192.168.1.20, not 192.168.1.020. See [zeros in
front](#fault-name-address-zero-padded).

Where the ladder stops is where to look first: what lies below has passed.

1. [By what one sees last](#by-what-one-sees-last)
2. [By fault](#by-fault)
)";

std::string Anchor(const Scenario& scenario) { return "fault-" + Replaced(scenario.name, "_", "-"); }

std::string Link(const Scenario& scenario) { return "[" + scenario.title + "](#" + Anchor(scenario) + ")"; }

/// What the technician sees last, which is what the search for the fault begins with.
std::string LastShown(const Scenario& scenario) {
  if (scenario.verdict.kind == Verdict::Kind::Passes) return "The ladder passes";
  for (auto shown = scenario.shown.rbegin(); shown != scenario.shown.rend(); ++shown) {
    if (shown->kind == Shown::Kind::Field && scenario.verdict.kind == Verdict::Kind::NotRun)
      return shown->field + ": " + shown->text;
    if (shown->kind == Shown::Kind::Line || shown->kind == Shown::Kind::Box)
      if (!shown->text.empty()) return "`" + Replaced(shown->text, "\r\n", " ") + "`";
  }
  return "Nothing";
}

void AppendByWhatIsSeen(std::string& page, const std::vector<Scenario>& scenarios) {
  page += "\n## By what one sees last\n\n| one sees | it may be |\n|---|---|\n";
  std::vector<std::string> done;
  for (const FaultGroup group : kFaultGroups) {
    for (const Scenario& scenario : scenarios) {
      const std::string last = LastShown(scenario);
      if (scenario.group != group || std::find(done.begin(), done.end(), last) != done.end()) continue;
      done.push_back(last);
      std::string faults;
      for (const Scenario& other : scenarios)
        if (LastShown(other) == last) faults += (faults.empty() ? "" : "<br>") + Link(other);
      page.append("| ").append(last).append(" | ").append(faults).append(" |\n");
    }
  }
}

void AppendContents(std::string& page, const std::vector<Scenario>& scenarios) {
  page += "\n## By fault\n";
  for (const FaultGroup group : kFaultGroups) {
    page.append("\n**").append(NameOf(group)).append("**\n\n");
    for (const Scenario& scenario : scenarios)
      if (scenario.group == group) page.append("- ").append(Link(scenario)).append("\n");
  }
}

std::string DoneBy(const Scenario& scenario) {
  std::string text = scenario.general ? "Tarvik (general edition)" : "Tarvik";
  if (!scenario.CommandLine().empty()) text += " " + scenario.CommandLine();
  text = "`" + text + "`";
  for (size_t i = 1; i < scenario.steps.size(); ++i) {
    const Step& step = scenario.steps[i];
    text += i == 1 ? ", then " : ", ";
    if (step.verb == "types")
      text += "type " + (step.text.empty() ? "nothing" : "`" + step.text + "`") + " as " + step.what;
    else if (step.verb == "ticks")
      text += "tick " + step.what;
    else
      text += "click " + step.what;
  }
  return text;
}

void AppendShown(std::string& page, const Scenario& scenario) {
  page += "\n```text\n";
  for (const Shown& shown : scenario.shown) {
    if (shown.kind == Shown::Kind::Line) page += shown.text + "\n";
    if (shown.kind == Shown::Kind::AnyLine) page += "[ a line of Windows' own ]\n";
    if (shown.kind == Shown::Kind::Box)
      page += "[ Message box: " + Replaced(shown.text, "\r\n", "\n                ") + " ]\n";
    if (shown.kind == Shown::Kind::Field) page += "[ " + shown.field + ": " + shown.text + " ]\n";
  }
  page += "```\n\n";
  if (scenario.verdict.kind == Verdict::Kind::Passes) page += "The ladder goes on and passes.\n\n";
  if (scenario.verdict.kind == Verdict::Kind::StopsAt)
    page.append("The ladder stops at **").append(NameOf(scenario.verdict.rung)).append("**.\n\n");
}

void AppendFault(std::string& page, const Scenario& scenario) {
  page += "\n<a id=\"" + Anchor(scenario) + "\"></a>\n\n### " + scenario.title + "\n\n";
  page += scenario.wrong + "\n\n" + DoneBy(scenario) + ":\n";
  AppendShown(page, scenario);
  page += "*What to do:* " + scenario.advice + "\n";
}

}  // namespace

std::string FaultPage(const std::vector<Scenario>& scenarios) {
  std::string page(kIntroduction);
  AppendByWhatIsSeen(page, scenarios);
  AppendContents(page, scenarios);
  for (const FaultGroup group : kFaultGroups) {
    page.append("\n## ").append(NameOf(group)).append("\n");
    for (const Scenario& scenario : scenarios)
      if (scenario.group == group) AppendFault(page, scenario);
  }
  return page;
}

}  // namespace tarvik::lab
