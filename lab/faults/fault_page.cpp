// Writes docs/faults.md. A test compares the file with what this code makes of lab/scenarios.

#include "lab/faults/fault_page.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string_view>
#include <utility>

#include "lab/faults/scenario_words.h"
#include "lab/faults/windows_chapter.h"

namespace tarvik::lab {
namespace {

constexpr std::string_view kIntroduction =
    R"(<!-- Generated from lab/scenarios by build/native/lab/guide_pages. Edit the scenarios, not this page. -->

# All faults and what Tarvik shows

This is the appendix of [Where did it stop?](where-did-it-stop.en.md). Start there. Here each fault has all its lines,
to compare them with yours.

1. [Find a fault by the last thing that Tarvik shows](#by-the-last-thing-shown)
2. [All faults](#all-faults)
3. [What differs on Windows](#what-differs-on-windows): the firewall, a dead host, the PC's cable, a proxy

A test creates every fault on this page on a laboratory network with simulated controllers. The lines are exactly
what Tarvik shows; `N` is a measured time.

The PC has the address 192.168.1.10/24 and the gateway 192.168.1.1. One controller is on the PC's subnet
(192.168.1.100), another is beyond the gateway (192.168.2.100). Your addresses differ; the lines are the same.

Read each reply line to its end. Only a line with "bytes=" is the host's answer. Any other is an error report, and the
check may still continue.

The tests run under Wine. Where Windows may show something else, the fault says so after "On Windows". Those lines
come from Microsoft's documentation and from tests with simulated answers.

The numbers after "Allocate Handle error=" and "SystemError=" are those of the maker's libraries. The negative ones on
this page are those of our test library. They mean: -102 no connection, -103 time-out, -104 connection lost, -105
invalid answer. The library on your PC may use others.
)";

std::string Anchor(const Scenario& scenario) { return "fault-" + Replaced(scenario.name, "_", "-"); }

std::string Link(const Scenario& scenario) { return "[" + scenario.title + "](#" + Anchor(scenario) + ")"; }

/// The last thing that the technician sees: the key of the page's index.
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

void AppendIndex(std::string& page, const std::vector<Scenario>& scenarios) {
  page += "\n## By the last thing shown\n";
  std::vector<std::string> done;
  for (const FaultGroup group : kFaultGroups) {
    for (const Scenario& scenario : scenarios) {
      const std::string last = LastShown(scenario);
      if (scenario.group != group || std::find(done.begin(), done.end(), last) != done.end()) continue;
      done.push_back(last);
      page.append("\n**").append(last).append("**\n\n");
      for (const Scenario& other : scenarios)
        if (LastShown(other) == last) page.append("- ").append(Link(other)).append("\n");
    }
  }
}

void AppendContents(std::string& page, const std::vector<Scenario>& scenarios) {
  page += "\n## All faults\n";
  for (const FaultGroup group : kFaultGroups) {
    page.append("\n**").append(NameOf(group)).append("**\n\n");
    for (const Scenario& scenario : scenarios)
      if (scenario.group == group) page.append("- ").append(Link(scenario)).append("\n");
  }
}

/// What the command line asks for, in words: nobody has to type it.
std::string SettingsOf(const Scenario& scenario) {
  std::map<std::string, std::string> options;
  const std::vector<std::string> words = WordsOf(scenario.CommandLine());
  for (size_t i = 0; i + 1 < words.size(); i += 2) options[words[i]] = words[i + 1];
  std::string text = scenario.HasTarget() ? "`" + words.back() + "`, Ping" : "";
  const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
  const long mask = options.contains("-X") ? std::strtol(options["-X"].c_str(), nullptr, 10) : 0;
  constexpr std::pair<long, const char*> kRungs[] = {{2, "NEXAL2"}, {4, "K7"}, {8, "FTP"}};
  for (const auto& [bit, rung] : kRungs)
    if (scenario.HasTarget() && (mask & bit) != 0) add(rung);
  if (options.contains("-NXLIB_TMOUT")) options["-NXLIB_TMOUT"] += " s";
  // Scenarios write secrets backwards.
  if (options.contains("-FTP_PASSWD")) std::ranges::reverse(options["-FTP_PASSWD"]);
  constexpr std::pair<const char*, const char*> kNames[] = {
      {"-PING_N", "ping count "},          {"-TCP_PORT", "TCP port "}, {"-NXLIB_TMOUT", "timeout "},
      {"-K7SERVER_HOST", "K7 server on "}, {"-FTP_USER", "user "},     {"-FTP_PASSWD", "password "},
      {"-LANGID", "started with -LANGID "}};
  for (const auto& [option, name] : kNames)
    if (options.contains(option)) add(name + options[option]);
  return text;
}

std::string StepsOf(const Scenario& scenario) {
  std::string text = SettingsOf(scenario);
  if (!text.empty()) text = "Shown with " + text;
  for (size_t i = 1; i < scenario.steps.size(); ++i) {
    const Step& step = scenario.steps[i];
    text += i > 1 ? ", " : text.empty() ? "Shown after these steps: " : ", then ";
    if (step.verb == "types")
      text += "type " + (step.text.empty() ? "nothing" : "`" + step.text + "`") + " as " + step.what;
    else if (step.verb == "ticks")
      text += "tick " + step.what;
    else
      text += "click " + step.what;
  }
  return text.empty() ? "Shown after the start:" : text + ":";
}

void AppendShown(std::string& page, const Scenario& scenario) {
  page += "\n```text\n";
  for (const Shown& shown : scenario.shown) {
    if (shown.kind == Shown::Kind::Line) page += shown.text + "\n";
    if (shown.kind == Shown::Kind::AnyLine) page += "[ a line from Windows ]\n";
    if (shown.kind == Shown::Kind::Box)
      page += "[ Message box: " + Replaced(shown.text, "\r\n", "\n                ") + " ]\n";
    if (shown.kind == Shown::Kind::Sentence && shown.text != "none")
      page += "[ Result: " + shown.text + " ]\n";
    if (shown.kind == Shown::Kind::Marks) page += "[ " + shown.text + " ]\n";
    if (shown.kind == Shown::Kind::Field) page += "[ " + shown.field + ": " + shown.text + " ]\n";
  }
  page += "```\n";
  if (scenario.verdict.kind == Verdict::Kind::Passes) page += "\nThe ladder passes.\n";
  if (scenario.verdict.kind == Verdict::Kind::StopsAt)
    page.append("\nThe ladder stops at **").append(NameOf(scenario.verdict.rung)).append("**.\n");
}

void AppendFault(std::string& page, const Scenario& scenario) {
  page += "\n<a id=\"" + Anchor(scenario) + "\"></a>\n\n### " + scenario.title + "\n\n";
  page += "**What to do:** " + scenario.advice + "\n\n" + scenario.wrong + "\n\n";
  if (!scenario.onWindows.empty()) page += "*On Windows:* " + scenario.onWindows + "\n\n";
  if (scenario.general) page += "General edition. ";
  page += StepsOf(scenario) + "\n";
  AppendShown(page, scenario);
}

}  // namespace

std::string FaultPage(const std::vector<Scenario>& scenarios) {
  std::string page(kIntroduction);
  AppendIndex(page, scenarios);
  AppendContents(page, scenarios);
  for (const FaultGroup group : kFaultGroups) {
    page.append("\n## ").append(NameOf(group)).append("\n");
    for (const Scenario& scenario : scenarios)
      if (scenario.group == group) AppendFault(page, scenario);
  }
  page += kWindowsChapter;
  return page;
}

}  // namespace tarvik::lab
