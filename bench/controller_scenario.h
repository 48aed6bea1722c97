#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/controller_messages.h"

namespace tarvik::bench {

/// What a controller does with the requests of one kind.
struct CallRule {
  enum class Answer {
    Given,    ///< as it should be
    Silent,   ///< never: the caller's time-out decides
    Dropped,  ///< the connection is closed in its place
    Rubbish   ///< bytes that are no answer
  };

  Answer answer = Answer::Given;
  int32_t delay = 0;              ///< milliseconds before the answer
  std::optional<int16_t> result;  ///< the result code in the place of a good answer
  int32_t times = 0;              ///< not 0: only the first so many requests get the code
  int32_t every = 0;              ///< not 0: only every so many-th request gets it
};

/// A range of PMC bytes, both ends included.
struct PmcRange {
  int32_t area = 0;  ///< address-type code, 0..12
  int32_t first = 0;
  int32_t last = 0;
};

/// Bytes that PMC memory begins with.
struct PmcBytes {
  int32_t area = 0;
  int32_t first = 0;
  std::vector<uint8_t> bytes;
};

/// Bytes that rise by one with each read, or each time so many milliseconds have passed.
struct PmcCounter {
  PmcRange range;
  int32_t everyMilliseconds = 0;  ///< 0 = with each read
};

/// A range whose reading fails with detail.
struct PmcFault {
  PmcRange range;
  DetailError detail;
};

/// Everything that a simulated controller is told. As it stands: a controller that is all well.
struct ControllerScenario {
  SystemInformation information;
  uint32_t options = 1;
  std::string accessCode;   ///< empty = none is asked for
  int32_t connections = 0;  ///< not 0: connections after so many are refused
  std::array<CallRule, kCallCount> rules;
  std::array<int32_t, kPmcAreaCount> areaSizes;
  std::vector<PmcBytes> memory;
  std::vector<PmcCounter> counters;
  std::vector<PmcFault> faults;

  ControllerScenario() { areaSizes.fill(10000); }

  CallRule& RuleOf(Call call) { return rules[static_cast<size_t>(call)]; }
};

/// Reads a scenario file's text; bench/README.md describes it. Throws ScenarioError.
ControllerScenario ReadControllerScenario(std::string_view text);

}  // namespace tarvik::bench
