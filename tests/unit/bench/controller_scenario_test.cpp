#include "bench/controller_scenario.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

std::string ErrorOf(std::string_view text) {
  try {
    ReadControllerScenario(text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "none";
}

TEST(ControllerScenario, An_empty_scenario_is_a_controller_without_faults) {
  const ControllerScenario scenario = ReadControllerScenario("");
  EXPECT_EQ(scenario.options & 1, 1U);
  EXPECT_EQ(scenario.accessCode, "");
  EXPECT_EQ(scenario.maxConnections, 0);
  for (const CallRule& rule : scenario.rules) {
    EXPECT_EQ(rule.answer, CallRule::Answer::Normal);
    EXPECT_FALSE(rule.result);
  }
}

TEST(ControllerScenario, System_information_is_read) {
  const ControllerScenario scenario = ReadControllerScenario(
      "model_type GL\nmachine_type \" T\"\nseries_code D6F1\nversion_code 02.3\naxes_text 05\n"
      "max_axes -1\naddinfo 0x1B00");
  EXPECT_EQ(scenario.information.modelType, "GL");
  EXPECT_EQ(scenario.information.machineType, " T");
  EXPECT_EQ(scenario.information.seriesCode, "D6F1");
  EXPECT_EQ(scenario.information.versionCode, "02.3");
  EXPECT_EQ(scenario.information.axesText, "05");
  EXPECT_EQ(scenario.information.maxAxes, -1);
  EXPECT_EQ(scenario.information.addinfo, 6912);
}

TEST(ControllerScenario, Rules_apply_to_the_request_they_name) {
  ControllerScenario scenario = ReadControllerScenario(
      "options 0xFFFFFFFF\naccess_code 12345678\nconnections 3\nresult pmc -1 every 3\n"
      "result sysinfo 5 first 2\nresult connect 7\ndelay options 250\nsilent detail\ndrop connect\nrubbish "
      "options");
  EXPECT_EQ(scenario.options, 0xFFFFFFFFU);
  EXPECT_EQ(scenario.accessCode, "12345678");
  EXPECT_EQ(scenario.maxConnections, 3);
  EXPECT_EQ(scenario.RuleOf(Call::PmcRead).result, -1);
  EXPECT_EQ(scenario.RuleOf(Call::PmcRead).everyNth, 3);
  EXPECT_EQ(scenario.RuleOf(Call::SystemInfo).onlyFirst, 2);
  EXPECT_EQ(scenario.RuleOf(Call::Connect).result, 7);
  EXPECT_EQ(scenario.RuleOf(Call::Connect).answer, CallRule::Answer::Dropped);
  EXPECT_EQ(scenario.RuleOf(Call::Options).delayMs, 250);
  EXPECT_EQ(scenario.RuleOf(Call::Options).answer, CallRule::Answer::Rubbish);
  EXPECT_EQ(scenario.RuleOf(Call::PmcDetail).answer, CallRule::Answer::Silent);
}

TEST(ControllerScenario, PMC_areas_have_the_address_type_codes) {
  const ControllerScenario scenario = ReadControllerScenario(
      "pmc G 0 1\npmc F 0 1\npmc Y 0 1\npmc X 0 1\npmc A 0 1\npmc R 0 1\npmc T 0 1\npmc K 0 1\npmc C 0 1\n"
      "pmc D 0 1\npmc M 0 1\npmc N 0 1\npmc E 0 1");
  for (size_t i = 0; i < kPmcAreaCount; ++i) EXPECT_EQ(scenario.memory.at(i).area, static_cast<int32_t>(i));
}

TEST(ControllerScenario, PMC_lines_are_read) {
  const ControllerScenario scenario = ReadControllerScenario(
      "pmc D 10 1 0xFF\npmc_size C 400\npmc_counts D 0 9 reads\npmc_counts X 1 1 every 500\npmc_error R 5 6 "
      "-1 2");
  EXPECT_EQ(scenario.memory.at(0).first, 10);
  EXPECT_EQ(scenario.memory.at(0).bytes, (std::vector<uint8_t>{1, 255}));
  EXPECT_EQ(scenario.areaSizes.at(8), 400);
  EXPECT_EQ(scenario.counters.at(0).periodMs, 0);
  EXPECT_EQ(scenario.counters.at(1).periodMs, 500);
  EXPECT_EQ(scenario.faults.at(0).range.last, 6);
  EXPECT_EQ(scenario.faults.at(0).detail.code, -1);
  EXPECT_EQ(scenario.faults.at(0).detail.item, 2);
}

TEST(ControllerScenario, An_error_is_reported_with_its_line_and_reason) {
  EXPECT_EQ(ErrorOf("options 1\nmodell 31"), "line 2: modell: unknown keyword");
  EXPECT_EQ(ErrorOf("model_type ABC"), "line 1: model_type: longer than 2 characters");
  EXPECT_EQ(ErrorOf("result connekt 1"), "line 1: result: unknown request \"connekt\"");
  EXPECT_EQ(ErrorOf("pmc B 0 1"), "line 1: pmc: unknown PMC area \"B\"");
  EXPECT_EQ(ErrorOf("pmc D 0 256"), "line 1: pmc: 256 is not between 0 and 255");
}

TEST(ControllerScenario, Invalid_lines_are_rejected) {
  for (const char* text : {"model_type",
                           "model_type 31 32",
                           "options 0x100000000",
                           "options -1",
                           "options x",
                           "connections 0",
                           "result",
                           "result pmc",
                           "result pmc 1 every",
                           "result pmc 1 often 3",
                           "result pmc 1 first 0",
                           "result pmc 40000",
                           "delay pmc",
                           "delay pmc -1",
                           "silent",
                           "silent pmc pmc",
                           "pmc D 0",
                           "pmc D -1 0",
                           "pmc_size D 32769",
                           "pmc_counts D 5 4 reads",
                           "pmc_counts D 0 1 every",
                           "pmc_counts D 0 1 reads 5",
                           "pmc_counts D 0 1 now",
                           "pmc_error D 0 1 2",
                           "pmc_error DD 0 1 2 3"}) {
    EXPECT_NE(ErrorOf(text), "none") << text;
  }
}

TEST(ControllerScenario, The_bench_samples_can_be_read) {
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(TARVIK_SOURCE_FOLDER "/bench/scenarios")) {
    if (file.path().filename() == "k7server.scenario") continue;
    std::ostringstream text;
    text << std::ifstream(file.path()).rdbuf();
    EXPECT_EQ(ErrorOf(text.str()), "none") << file.path();
    ++count;
  }
  EXPECT_GE(count, 6);
}

}  // namespace
}  // namespace tarvik::bench
