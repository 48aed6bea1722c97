#include "lab/faults/scenario_outcome.h"

#include <gtest/gtest.h>

namespace tarvik::lab {
namespace {

Shown Line(const std::string& text) { return {Shown::Kind::Line, text, {}, {}}; }

/// A scenario whose ladder should reach the CNC library but stops at Ping.
Scenario StopsAtPing() {
  Scenario scenario;
  scenario.name = "mine";
  scenario.steps = {{"starts", "-X 2 host", {}, 1}};
  scenario.shown = {Line("PING test..."), Line("ICMP_Error:11010"), Line("Cannot ping to the Target")};
  scenario.verdict = {Verdict::Kind::StopsAt, Rung::Ping};
  return scenario;
}

TEST(Difference, Is_empty_when_the_outcome_matches) {
  const Scenario scenario = StopsAtPing();
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::Ping}), "");
}

TEST(Difference, Lists_missing_and_unexpected_lines) {
  const Scenario scenario = StopsAtPing();
  EXPECT_EQ(Difference(scenario, {{Line("PING test..."),
                                   Line("Cannot ping to the Target"),
                                   Line("a\tb"),
                                   {Shown::Kind::Box, "one\r\ntwo", {}, "OK"}},
                                  Rung::Ping}),
            "lab/scenarios/mine.scenario\n"
            "The tool shows something else (- missing, + unexpected):\n"
            "    \"PING test...\"\n"
            "  - \"ICMP_Error:11010\"\n"
            "    \"Cannot ping to the Target\"\n"
            "  + \"a<tab>b\"\n"
            "  + box \"one<new line>two\" answered OK\n");
}

TEST(Difference, Any_line_matches_one_line_but_neither_a_box_nor_nothing) {
  Scenario scenario = StopsAtPing();
  scenario.shown[1] = {Shown::Kind::AnyLine, {}, {}, {}};
  Outcome outcome{scenario.shown, Rung::Ping};
  outcome.shown[1] = Line("whatever");
  EXPECT_EQ(Difference(scenario, outcome), "");
  outcome.shown[1] = {Shown::Kind::Box, "whatever", {}, "OK"};
  EXPECT_NE(Difference(scenario, outcome), "");
  outcome.shown.erase(outcome.shown.begin() + 1);
  EXPECT_NE(Difference(scenario, outcome), "");
}

TEST(Difference, Reports_a_ladder_that_ends_too_early_or_too_late) {
  Scenario scenario = StopsAtPing();
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::CncLibrary}),
            "lab/scenarios/mine.scenario\nThe ladder: passes, expected: stops at Ping\n");
  scenario.verdict = {Verdict::Kind::Passes, {}};
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::CncLibrary}), "");
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::Ping}),
            "lab/scenarios/mine.scenario\nThe ladder: stops at Ping, expected: passes\n");
  EXPECT_EQ(Difference(scenario, {scenario.shown, std::nullopt}),
            "lab/scenarios/mine.scenario\nThe ladder: is not run, expected: passes\n");
  scenario.verdict = {Verdict::Kind::NotRun, {}};
  EXPECT_EQ(Difference(scenario, {scenario.shown, std::nullopt}), "");
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::Ping}),
            "lab/scenarios/mine.scenario\nThe ladder: stops at Ping, expected: is not run\n");
}

TEST(Difference, A_ladder_that_ends_before_the_title_of_the_next_rung_stopped_at_that_rung) {
  Scenario scenario = StopsAtPing();
  scenario.steps[0].what = "-X 10 host";
  scenario.verdict = {Verdict::Kind::StopsAt, Rung::CncLibrary};
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::Ping}), "");
  EXPECT_NE(Difference(scenario, {scenario.shown, Rung::Ftp}), "");
}

TEST(Difference, On_the_highest_rung_the_lines_alone_decide) {
  Scenario scenario = StopsAtPing();
  scenario.steps[0].what = "-X 8 host";
  scenario.verdict = {Verdict::Kind::StopsAt, Rung::Ftp};
  EXPECT_EQ(Difference(scenario, {scenario.shown, Rung::Ftp}), "");
}

TEST(HighestBegun, Is_derived_from_the_titles_of_the_rungs) {
  EXPECT_EQ(HighestBegun({}), std::nullopt);
  EXPECT_EQ(HighestBegun({"PING test..."}), Rung::Ping);
  EXPECT_EQ(HighestBegun({"PING test...", "", "Get System Information test....", "CNC Type"}),
            Rung::CncLibrary);
  EXPECT_EQ(HighestBegun({"K7Api test....", "00001 Live=True"}), Rung::K7);
  EXPECT_EQ(HighestBegun({"FTP Connect test...", "Get System Information test...."}), Rung::Ftp);
}

}  // namespace
}  // namespace tarvik::lab
