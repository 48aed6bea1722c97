#include "lab/faults/fault_page.h"

#include <gtest/gtest.h>

#include <cctype>
#include <iterator>
#include <set>
#include <sstream>

namespace tarvik::lab {
namespace {

constexpr char kScenarios[] = TARVIK_SOURCE_FOLDER "/lab/scenarios";

TEST(FaultPage, Has_a_chapter_for_each_group_and_at_least_40_faults) {
  const std::vector<Scenario> scenarios = ReadScenarios(kScenarios);
  EXPECT_GE(scenarios.size(), 40U);
  std::set<std::string> titles;
  std::set<FaultGroup> groups;
  for (const Scenario& scenario : scenarios) {
    EXPECT_TRUE(titles.insert(scenario.title).second) << scenario.title;
    groups.insert(scenario.group);
  }
  EXPECT_EQ(groups.size(), std::size(kFaultGroups));
}

TEST(FaultPage, Groups_the_faults_by_the_last_thing_the_tool_shows) {
  const auto fault = [](const char* name, const std::vector<Shown>& shown, Verdict verdict) {
    Scenario scenario;
    scenario.name = name;
    scenario.title = std::string("Fault ") + name;
    scenario.steps = {{"starts", "host", {}, 1}};
    scenario.shown = shown;
    scenario.verdict = verdict;
    return scenario;
  };
  const Shown line{Shown::Kind::Line, "dead", {}, {}};
  const Shown empty{Shown::Kind::Line, "", {}, {}};
  const Shown box{Shown::Kind::Box, "one\r\ntwo", {}, "OK"};
  const Shown field{Shown::Kind::Field, "---", "status", {}};
  const Verdict stops{Verdict::Kind::StopsAt, Rung::Ping};
  const std::string page = FaultPage({fault("a", {line, empty}, stops), fault("b", {line, box, field}, stops),
                                      fault("c", {box, line}, stops), fault("d", {line}, {}),
                                      fault("e", {line, field}, {Verdict::Kind::NotRun, {}})});
  EXPECT_NE(page.find("**`dead`**\n\n- [Fault a](#fault-a)\n- [Fault c](#fault-c)\n\n"
                      "**`one two`**\n\n- [Fault b](#fault-b)\n\n"
                      "**The ladder passes**\n\n- [Fault d](#fault-d)\n\n"
                      "**status: ---**\n\n- [Fault e](#fault-e)\n"),
            std::string::npos)
      << page;
}

TEST(FaultPage, Describes_a_fault_with_its_steps_lines_and_advice) {
  Scenario scenario;
  scenario.name = "k7_mine";
  scenario.title = "My fault";
  scenario.group = FaultGroup::K7;
  scenario.general = true;
  scenario.wrong = "It is wrong.";
  scenario.advice = "Do this.";
  scenario.steps = {{"starts", "-X 12 -FTP_PASSWD terces host", {}, 1},
                    {"types", "address", "1.2.3.4", 2},
                    {"clicks", "Ping", {}, 3}};
  scenario.shown = {{Shown::Kind::Line, "PING test...", {}, {}},
                    {Shown::Kind::AnyLine, {}, {}, {}},
                    {Shown::Kind::Box, "One.\r\nTwo.", {}, "OK"},
                    {Shown::Kind::Field, "---", "K7 Server status", {}}};
  scenario.verdict = {Verdict::Kind::StopsAt, Rung::K7};
  const std::string page = FaultPage({scenario});
  EXPECT_NE(page.find("**K7**\n\n- [My fault](#fault-k7-mine)\n"), std::string::npos);
  EXPECT_NE(page.find("\n## K7\n\n<a id=\"fault-k7-mine\"></a>\n\n### My fault\n\n**What to do:** Do "
                      "this.\n\nIt is wrong.\n\n"
                      "General edition. Shown with `host`, Ping, K7, FTP, password secret, then type "
                      "`1.2.3.4` as address, "
                      "click Ping:\n\n```text\nPING test...\n[ a line from Windows ]\n[ Message box: One.\n  "
                      "              Two. ]\n"
                      "[ K7 Server status: --- ]\n```\n\nThe ladder stops at **K7**.\n"),
            std::string::npos)
      << page;
}

TEST(FaultPage, Adds_what_differs_on_Windows_only_where_something_does) {
  Scenario scenario;
  scenario.steps = {{"starts", "host", {}, 1}};
  scenario.shown = {{Shown::Kind::Line, "dead", {}, {}}};
  scenario.advice = "Do this.";
  EXPECT_EQ(FaultPage({scenario}).find("*On Windows:*"), std::string::npos);
  scenario.onWindows = "It differs.";
  EXPECT_NE(FaultPage({scenario}).find("**What to do:** Do this.\n\n\n\n*On Windows:* It differs.\n\n"),
            std::string::npos);
}

/// The anchor that a heading gets on the page.
std::string AnchorOf(std::string_view heading) {
  std::string anchor;
  for (const char character : heading) {
    if (std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '-')
      anchor.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(character))));
    else if (character == ' ')
      anchor.push_back('-');
  }
  return anchor;
}

TEST(FaultPage, Every_link_leads_to_a_heading_or_a_fault) {
  const std::string page = FaultPage(ReadScenarios(kScenarios));
  std::set<std::string> anchors;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("#")) anchors.insert(AnchorOf(line.substr(line.find(' ') + 1)));
    if (line.starts_with("<a id=")) anchors.insert(line.substr(7, line.find('"', 7) - 7));
  }
  constexpr std::string_view kLink = "](#";
  for (size_t at = page.find(kLink); at != std::string::npos; at = page.find(kLink, at + 1)) {
    const size_t begin = at + kLink.size();
    const std::string link = page.substr(begin, page.find(')', begin) - begin);
    EXPECT_TRUE(anchors.contains(link)) << link;
  }
}

}  // namespace
}  // namespace tarvik::lab
