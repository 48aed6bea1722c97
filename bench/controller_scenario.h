#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/controller_messages.h"

namespace tarvik::bench {

/// How a controller treats requests of one kind.
struct CallRule {
  enum class Answer {
    Normal,   ///< the correct answer
    Silent,   ///< no answer; the caller times out
    Dropped,  ///< the connection is closed instead
    Rubbish   ///< bytes that are not a message
  };

  Answer answer = Answer::Normal;
  int32_t delayMs = 0;            ///< before the answer
  std::optional<int16_t> result;  ///< result code instead of the correct answer
  int32_t onlyFirst = 0;          ///< not 0: only the first N requests get the code
  int32_t everyNth = 0;           ///< not 0: only every N-th request gets it
};

/// A range of PMC bytes, both ends inclusive.
struct PmcRange {
  int32_t area = 0;  ///< address-type code, 0..12
  int32_t first = 0;
  int32_t last = 0;
};

/// Initial contents of PMC memory.
struct PmcBytes {
  int32_t area = 0;
  int32_t first = 0;
  std::vector<uint8_t> bytes;
};

/// Bytes that increase by one with each read, or once per period.
struct PmcCounter {
  PmcRange range;
  int32_t periodMs = 0;  ///< 0 = per read
};

/// A range that cannot be read, and the error detail to report.
struct PmcFault {
  PmcRange range;
  DetailError detail;
};

/// A simulated controller's configuration. The defaults describe a controller without faults.
struct ControllerScenario {
  SystemInformation information;
  uint32_t options = 1;
  std::string accessCode;      ///< empty = not required
  int32_t maxConnections = 0;  ///< not 0: later connections are refused
  std::array<CallRule, kCallCount> rules;
  std::array<int32_t, kPmcAreaCount> areaSizes;
  std::vector<PmcBytes> memory;
  std::vector<PmcCounter> counters;
  std::vector<PmcFault> faults;

  ControllerScenario() { areaSizes.fill(10000); }

  CallRule& RuleOf(Call call) { return rules[static_cast<size_t>(call)]; }
};

/// Parses a scenario file; bench/README.md describes the format. Throws ScenarioError.
ControllerScenario ReadControllerScenario(std::string_view text);

}  // namespace tarvik::bench
