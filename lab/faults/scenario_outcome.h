#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/faults/scenario.h"

namespace tarvik::lab {

/// What the tool showed and did in a scenario.
struct Outcome {
  std::vector<Shown> shown;
  std::optional<Rung> highestBegun;  ///< nothing when the ladder was not run or began no rung
};

/// The highest rung whose title is among the lines; nothing when there are no lines.
std::optional<Rung> HighestBegun(const std::vector<std::string>& lines);

/// The difference between the scenario and the outcome in the notation of scenario files: a line diff ("-"
/// missing, "+" unexpected) and the verdict. Empty when they match.
std::string Difference(const Scenario& scenario, const Outcome& outcome);

}  // namespace tarvik::lab
