#include "lab/faults/scenario.h"

#include <gtest/gtest.h>

namespace tarvik::lab {
namespace {

constexpr char kGood[] = R"(# A comment.
Title: The gateway is off
Group: Network

What is wrong:
  Nobody answers
  for the gateway.

What to do:
  Switch it on.

In the laboratory:
  cable out gateway
  address pc 10.0.0.1/8 10.0.0.2/8
  controller near
    access_code 1234
    options 0x7E

The technician:
  starts -PING_N 1 -X 2 192.168.2.100
  types access code: 12 34
  ticks access code
  clicks Get CNC Info

The tool says:
  "say "it""
  ""
  "CNC Type<tab>31 "
  any line
  box "One.<new line>Two." answered Yes
  shows K7 Server status "---"

The sentence: Gateway silent: check its address, cable, power.
The marks: Name OK, PC OK, Gateway FAIL

The ladder: stops at Ping
)";

std::string Replace(std::string text, const std::string& what, const std::string& with) {
  const size_t at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

/// The error message for the text; "none" when it is well-formed.
std::string ErrorOf(const std::string& text) {
  try {
    ReadScenario("mine", text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "none";
}
std::string ErrorWith(const std::string& what, const std::string& with) {
  return ErrorOf(Replace(kGood, what, with));
}

TEST(Scenario, Has_a_description_and_advice) {
  const Scenario scenario = ReadScenario("mine", kGood);
  EXPECT_EQ(scenario.name, "mine");
  EXPECT_EQ(scenario.title, "The gateway is off");
  EXPECT_EQ(scenario.group, FaultGroup::Network);
  EXPECT_FALSE(scenario.general);
  EXPECT_EQ(scenario.wrong, "Nobody answers for the gateway.");
  EXPECT_EQ(scenario.advice, "Switch it on.");
}

TEST(Scenario, A_change_has_a_verb_a_host_words_and_indented_lines) {
  const Scenario scenario = ReadScenario("mine", kGood);
  ASSERT_EQ(scenario.changes.size(), 3U);
  EXPECT_EQ(scenario.changes[0].verb, "cable out");
  EXPECT_EQ(scenario.changes[0].host, "gateway");
  EXPECT_EQ(scenario.changes[0].line, 13);
  EXPECT_EQ(scenario.changes[1].words, (std::vector<std::string>{"10.0.0.1/8", "10.0.0.2/8"}));
  EXPECT_EQ(scenario.changes[2].lines, (std::vector<std::string>{"access_code 1234", "options 0x7E"}));
}

TEST(Scenario, A_step_starts_types_ticks_or_clicks) {
  const Scenario scenario = ReadScenario("mine", kGood);
  EXPECT_EQ(scenario.CommandLine(), "-PING_N 1 -X 2 192.168.2.100");
  EXPECT_TRUE(scenario.HasTarget());
  ASSERT_EQ(scenario.steps.size(), 4U);
  EXPECT_EQ(scenario.steps[1].verb, "types");
  EXPECT_EQ(scenario.steps[1].what, "access code");
  EXPECT_EQ(scenario.steps[1].text, "12 34");
  EXPECT_EQ(scenario.steps[2].verb, "ticks");
  EXPECT_EQ(scenario.steps[3].what, "Get CNC Info");
}

TEST(Scenario, What_the_tool_shows_is_kept_literally) {
  const std::vector<Shown> shown = ReadScenario("mine", kGood).shown;
  ASSERT_EQ(shown.size(), 8U);
  EXPECT_EQ(shown[0], (Shown{Shown::Kind::Line, "say \"it\"", {}, {}}));
  EXPECT_EQ(shown[1], (Shown{Shown::Kind::Line, "", {}, {}}));
  EXPECT_EQ(shown[2], (Shown{Shown::Kind::Line, "CNC Type\t31 ", {}, {}}));
  EXPECT_EQ(shown[3].kind, Shown::Kind::AnyLine);
  EXPECT_EQ(shown[4], (Shown{Shown::Kind::Box, "One.\r\nTwo.", {}, "Yes"}));
  EXPECT_EQ(shown[5], (Shown{Shown::Kind::Field, "---", "K7 Server status", {}}));
  EXPECT_EQ(shown[6],
            (Shown{Shown::Kind::Sentence, "Gateway silent: check its address, cable, power.", {}, {}}));
  EXPECT_EQ(shown[7], (Shown{Shown::Kind::Marks, "Name OK, PC OK, Gateway FAIL", {}, {}}));
}

TEST(Scenario, Formatting_reverses_parsing) {
  const Scenario scenario = ReadScenario("mine", kGood);
  for (const Shown& shown : scenario.shown) {
    const bool heading = shown.kind == Shown::Kind::Sentence || shown.kind == Shown::Kind::Marks;
    const std::string line = (heading ? "\n" : "\n  ") + ToScenarioText(shown) + "\n";
    EXPECT_NE(std::string(kGood).find(line), std::string::npos) << line;
  }
  EXPECT_EQ(ToScenarioText(scenario.verdict), "stops at Ping");
}

TEST(Scenario, A_file_from_Windows_reads_the_same) {
  std::string text;
  for (const char character : std::string(kGood))
    text.append(character == '\n' ? "\r" : "").push_back(character);
  EXPECT_EQ(ReadScenario("mine", text).shown, ReadScenario("mine", kGood).shown);
}

TEST(Scenario, A_verdict_passes_stops_or_is_not_run) {
  const auto verdict = [](const char* words) {
    return ReadScenario("mine", Replace(kGood, "stops at Ping", words)).verdict;
  };
  EXPECT_EQ(verdict("passes").kind, Verdict::Kind::Passes);
  EXPECT_EQ(verdict("is not run").kind, Verdict::Kind::NotRun);
  EXPECT_EQ(verdict("stops at FTP").rung, Rung::Ftp);
  EXPECT_EQ(ErrorWith("stops at Ping", "stops at Pong"),
            "mine.scenario:36: the ladder \"passes\", \"is not run\" or \"stops at\" one of \"Ping\", \"CNC "
            "library\", \"K7\", \"FTP\"");
}

TEST(Scenario, A_verdict_that_stops_at_the_highest_requested_rung_is_rejected) {
  EXPECT_EQ(
      ErrorWith("-X 2 ", ""),
      "mine.scenario:36: request a higher rung with -X, or nothing shows that the ladder stops at Ping");
}

TEST(Scenario, The_command_line_and_the_buttons_determine_the_highest_rung) {
  const auto highest = [](const std::string& start, const std::string& click, bool general) {
    Scenario scenario = ReadScenario("mine", kGood);
    scenario.general = general;
    scenario.steps = {{"starts", start, {}, 1}, {"clicks", click, {}, 2}};
    return scenario.HighestRung();
  };
  EXPECT_EQ(highest("host", "Ping", false), Rung::Ping);
  EXPECT_EQ(highest("-X 2 host", "Ping", false), Rung::CncLibrary);
  EXPECT_EQ(highest("-X 4 host", "Ping", false), Rung::Ping);
  EXPECT_EQ(highest("-X 4 host", "Ping", true), Rung::K7);
  EXPECT_EQ(highest("-X 2 -X 8 host", "Ping", true), Rung::Ftp);
  EXPECT_EQ(highest("", "All Test", false), Rung::CncLibrary);
  EXPECT_EQ(highest("", "All Test", true), Rung::K7);
  EXPECT_EQ(highest("", "FTP All Test", false), Rung::Ftp);
}

TEST(Scenario, Without_a_target_the_ladder_does_not_start_by_itself) {
  const std::string notRun = Replace(kGood, "stops at Ping", "is not run");
  EXPECT_FALSE(ReadScenario("mine", Replace(notRun, " 192.168.2.100", "")).HasTarget());
  EXPECT_FALSE(ReadScenario("mine", Replace(notRun, " -PING_N 1 -X 2 192.168.2.100", "")).HasTarget());
}

TEST(Scenario, What_differs_on_Windows_is_optional) {
  EXPECT_EQ(ReadScenario("mine", kGood).onWindows, "");
  const std::string text =
      Replace(kGood, "In the laboratory:", "On Windows:\n  Windows\n  differs.\n\nIn the laboratory:");
  EXPECT_EQ(ReadScenario("mine", text).onWindows, "Windows differs.");
  EXPECT_EQ(ErrorWith("In the laboratory:", "On Windows:\nIn the laboratory:"),
            "mine.scenario:12: \"On Windows:\" needs a text");
}

TEST(ScenarioError, Is_reported_with_the_file_and_the_line) {
  EXPECT_EQ(ErrorWith("Group: Network", "Group: Cables"),
            "mine.scenario:3: a group is one of \"Network\", \"Names\", \"CNC library\", \"K7\", \"FTP\"");
  EXPECT_EQ(ErrorWith("Group:", "Edition: special\nGroup:"),
            "mine.scenario:3: the only other edition is \"general\"");
}

TEST(ScenarioError, Every_heading_is_known_unique_and_complete) {
  EXPECT_EQ(ErrorWith("Group:", "Grope:"), "mine.scenario:3: \"Grope:\" is not a heading of a scenario");
  EXPECT_EQ(ErrorWith("Group:", "Title: Again\nGroup:"), "mine.scenario:3: \"Title:\" appears twice");
  EXPECT_EQ(ErrorWith("Title: The gateway is off\n", ""), "mine.scenario:35: \"Title:\" is missing");
  EXPECT_EQ(ErrorWith("Title: The gateway is off", "Title:"),
            "mine.scenario:2: \"Title:\" needs a value on the same line");
  EXPECT_EQ(ErrorWith("Title: The", "Title The"),
            "mine.scenario:2: a heading ends with \":\"; the lines below it are indented");
  EXPECT_EQ(ErrorWith("  Switch it on.\n", ""), "mine.scenario:9: \"What to do:\" needs a text");
  EXPECT_EQ(ErrorOf("  indented\n"),
            "mine.scenario:1: this line needs a heading before it, such as \"Title:\"");
  EXPECT_EQ(ErrorWith("  Switch", "\tSwitch"), "mine.scenario:10: indent with spaces, not with tabs");
  EXPECT_EQ(ErrorWith("Group: Network", "Group: Network\n  more"),
            "mine.scenario:4: \"Group:\" takes no lines below it");
  EXPECT_EQ(ErrorOf(""), "mine.scenario:0: \"Title:\" is missing");
}

TEST(ScenarioError, An_unknown_or_malformed_change_is_rejected) {
  EXPECT_TRUE(
      ErrorWith("cable out gateway", "cable in gateway")
          .starts_with("mine.scenario:13: the laboratory does not know \"cable in gateway\", only cable out, "
                       "address, "));
  EXPECT_EQ(ErrorWith("cable out gateway", "cable out"),
            "mine.scenario:13: \"cable out\" needs a host: \"pc\", \"gateway\", \"near\", \"far\"");
  EXPECT_EQ(ErrorWith("cable out gateway", "cable out router"),
            "mine.scenario:13: \"cable out\" needs a host: \"pc\", \"gateway\", \"near\", \"far\"");
  EXPECT_EQ(ErrorWith("cable out gateway", "cable out near now"),
            "mine.scenario:13: \"now\" is one word too many");
  EXPECT_EQ(ErrorWith("cable out gateway", "gateway pc"),
            "mine.scenario:13: too few words in \"gateway pc\"");
  EXPECT_EQ(ErrorWith("cable out gateway", "cable out near\n    deeper"),
            "mine.scenario:14: \"cable out\" takes no lines below it");
}

TEST(ScenarioError, The_first_step_starts_the_tool_and_the_others_use_its_controls) {
  const char* const start =
      "mine.scenario:20: the first step, and only the first, is \"starts COMMAND LINE\"";
  EXPECT_EQ(ErrorWith("starts -PING_N 1 -X 2 192.168.2.100", "clicks Ping"), start);
  EXPECT_EQ(ErrorWith("ticks access code", "starts again").substr(0, 17), "mine.scenario:22:");
  EXPECT_EQ(ErrorWith("ticks access code", "breaks window"),
            "mine.scenario:22: a step is \"starts\", \"types\", \"ticks\" or \"clicks\", not \"breaks\"");
  EXPECT_EQ(ErrorWith("types access code: 12 34", "types access code 12 34"),
            "mine.scenario:21: write \"types FIELD: TEXT\"");
  EXPECT_TRUE(ErrorWith("clicks Get CNC Info", "clicks Get Info")
                  .starts_with("mine.scenario:23: cannot click \"Get Info\", only \"Ping\", \"All Test\""));
  EXPECT_TRUE(ErrorWith("ticks access code", "ticks port")
                  .starts_with("mine.scenario:22: cannot tick \"port\", only \"access code\""));
  EXPECT_TRUE(ErrorWith("types access code:", "types secret:")
                  .starts_with("mine.scenario:21: cannot type \"secret\", only \"address\""));
}

TEST(ScenarioError, What_the_tool_shows_must_be_quoted) {
  EXPECT_EQ(ErrorWith("\"CNC Type<tab>31 \"", "CNC Type"),
            "mine.scenario:28: write what the tool shows in double quotes");
  EXPECT_EQ(ErrorWith("\"CNC Type<tab>31 \"", "line \"CNC Type\""),
            "mine.scenario:28: write only the text in double quotes");
  EXPECT_EQ(ErrorWith(" answered Yes", " answered Maybe"),
            "mine.scenario:30: after the text of a box write \"answered\" and one of \"OK\", \"Cancel\", "
            "\"Yes\", "
            "\"No\"");
  EXPECT_EQ(ErrorWith(" answered Yes", ""),
            "mine.scenario:30: after the text of a box write \"answered\" and one of \"OK\", \"Cancel\", "
            "\"Yes\", "
            "\"No\"");
  EXPECT_TRUE(ErrorWith("shows K7 Server status", "shows mood")
                  .starts_with("mine.scenario:31: there is no field \"mood\", only \"address\""));
}

TEST(ScenarioError, A_missing_folder_is_reported) {
  EXPECT_THROW(ReadScenarios("/nowhere/at/all"), ScenarioError);
}

}  // namespace
}  // namespace tarvik::lab
