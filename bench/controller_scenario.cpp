#include "bench/controller_scenario.h"

#include <algorithm>

#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

constexpr int32_t kMaxDelayMs = 600000;
constexpr int32_t kMaxPmcNumber = INT16_MAX;
// Every PMC read searches all of them.
constexpr size_t kMaxPmcRules = 1000;

constexpr std::string_view kAreaLetters = "GFYXARTKCDMNE";
static_assert(kAreaLetters.size() == kPmcAreaCount);

constexpr std::string_view kCallNames[kCallCount] = {"connect", "options", "sysinfo", "pmc", "detail"};

CallRule& RuleOf(ControllerScenario& scenario, const ScenarioLine& line) {
  const auto name = std::find(std::begin(kCallNames), std::end(kCallNames), line.Word(0));
  if (name == std::end(kCallNames)) line.Fail("unknown request \"" + line.Word(0) + "\"");
  return scenario.rules[static_cast<size_t>(name - std::begin(kCallNames))];
}

int32_t AreaOf(const ScenarioLine& line) {
  const std::string& word = line.Word(0);
  const size_t area = word.size() == 1 ? kAreaLetters.find(word[0]) : std::string_view::npos;
  if (area == std::string_view::npos) line.Fail("unknown PMC area \"" + word + "\"");
  return static_cast<int32_t>(area);
}

PmcRange RangeOf(const ScenarioLine& line) {
  PmcRange range;
  range.area = AreaOf(line);
  range.first = line.Number(1, 0, kMaxPmcNumber);
  range.last = line.Number(2, range.first, kMaxPmcNumber);
  return range;
}

std::string TextOf(const ScenarioLine& line, size_t max) {
  line.Expect(1, 1);
  if (line.Word(0).size() > max) line.Fail("longer than " + std::to_string(max) + " characters");
  return line.Word(0);
}

int32_t OneNumber(const ScenarioLine& line, int32_t min, int32_t max) {
  line.Expect(1, 1);
  return line.Number(0, min, max);
}

/// Syntax: result <request> <code> [first <n> | every <n>]
void ReadResult(CallRule& rule, const ScenarioLine& line) {
  line.Expect(2, 4);
  rule.result = static_cast<int16_t>(line.Number(1, INT16_MIN, INT16_MAX));
  rule.onlyFirst = 0;
  rule.everyNth = 0;
  if (line.Count() == 2) return;
  const int32_t count = line.Number(3, 1, INT32_MAX);
  if (line.Word(2) == "first") {
    rule.onlyFirst = count;
  } else if (line.Word(2) == "every") {
    rule.everyNth = count;
  } else {
    line.Fail("expected \"first\" or \"every\", not \"" + line.Word(2) + "\"");
  }
}

bool ReadInformation(SystemInformation& information, const ScenarioLine& line) {
  const std::string& name = line.Name();
  if (name == "model_type") {
    information.modelType = TextOf(line, 2);
  } else if (name == "machine_type") {
    information.machineType = TextOf(line, 2);
  } else if (name == "series_code") {
    information.seriesCode = TextOf(line, 4);
  } else if (name == "version_code") {
    information.versionCode = TextOf(line, 4);
  } else if (name == "axes_text") {
    information.axesText = TextOf(line, 2);
  } else if (name == "max_axes") {
    information.maxAxes = static_cast<int16_t>(OneNumber(line, INT16_MIN, INT16_MAX));
  } else if (name == "addinfo") {
    information.addinfo = static_cast<int16_t>(OneNumber(line, INT16_MIN, INT16_MAX));
  } else {
    return false;
  }
  return true;
}

bool ReadConnection(ControllerScenario& scenario, const ScenarioLine& line) {
  const std::string& name = line.Name();
  if (name == "options") {
    line.Expect(1, 1);
    const int64_t options = ParseNumber(line.Word(0)).value_or(-1);
    if (options < 0 || options > UINT32_MAX) line.Fail(line.Word(0) + " is not a 32-bit word");
    scenario.options = static_cast<uint32_t>(options);
  } else if (name == "access_code") {
    scenario.accessCode = TextOf(line, 255);
  } else if (name == "connections") {
    scenario.maxConnections = OneNumber(line, 1, INT32_MAX);
  } else if (name == "result") {
    ReadResult(RuleOf(scenario, line), line);
  } else if (name == "delay") {
    line.Expect(2, 2);
    RuleOf(scenario, line).delayMs = line.Number(1, 0, kMaxDelayMs);
  } else if (name == "silent" || name == "drop" || name == "rubbish") {
    line.Expect(1, 1);
    RuleOf(scenario, line).answer = name == "silent" ? CallRule::Answer::Silent
                                    : name == "drop" ? CallRule::Answer::Dropped
                                                     : CallRule::Answer::Rubbish;
  } else {
    return false;
  }
  return true;
}

bool ReadPmc(ControllerScenario& scenario, const ScenarioLine& line) {
  const std::string& name = line.Name();
  if (name == "pmc_size") {
    line.Expect(2, 2);
    scenario.areaSizes[static_cast<size_t>(AreaOf(line))] = line.Number(1, 0, kMaxPmcNumber + 1);
  } else if (name == "pmc") {
    PmcBytes memory{AreaOf(line), line.Number(1, 0, kMaxPmcNumber), {}};
    line.Expect(3, static_cast<size_t>(kMaxPmcNumber));
    for (size_t i = 2; i < line.Count(); ++i) {
      memory.bytes.push_back(static_cast<uint8_t>(line.Number(i, 0, 255)));
    }
    scenario.memory.push_back(std::move(memory));
  } else if (name == "pmc_counts") {
    line.Expect(4, 5);
    PmcCounter counter{RangeOf(line), 0};
    if (line.Word(3) == "every") {
      line.Expect(5, 5);
      counter.periodMs = line.Number(4, 1, kMaxDelayMs);
    } else if (line.Word(3) == "reads") {
      line.Expect(4, 4);
    } else {
      line.Fail("expected \"reads\" or \"every\", not \"" + line.Word(3) + "\"");
    }
    scenario.counters.push_back(counter);
  } else if (name == "pmc_error") {
    line.Expect(5, 5);
    const DetailError detail{static_cast<int16_t>(line.Number(3, INT16_MIN, INT16_MAX)),
                             static_cast<int16_t>(line.Number(4, INT16_MIN, INT16_MAX))};
    scenario.faults.push_back({RangeOf(line), detail});
  } else {
    return false;
  }
  if (scenario.counters.size() + scenario.faults.size() > kMaxPmcRules)
    line.Fail("too many counters and errors");
  return true;
}

}  // namespace

ControllerScenario ReadControllerScenario(std::string_view text) {
  ControllerScenario scenario;
  for (const ScenarioLine& line : ReadScenarioLines(text)) {
    const bool known = ReadInformation(scenario.information, line) || ReadConnection(scenario, line) ||
                       ReadPmc(scenario, line);
    if (!known) line.Fail("unknown keyword");
  }
  return scenario;
}

}  // namespace tarvik::bench
