#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/scenario.h"

namespace tarvik::lab {

/// What the tool did with a scenario's fault.
struct Outcome {
  std::vector<Shown> shown;
  std::optional<Rung> highestBegun;  ///< of the ladder; nothing when it was not run or began none
};

/// The highest rung whose first line is among these; nothing when none is.
std::optional<Rung> HighestBegun(const std::vector<std::string>& lines);

/// What is other than the scenario says, for somebody who knows scenario files: each line, "-" before what
/// is missing and "+" before what came in its place, and the verdict. Empty when all is as it says.
std::string Difference(const Scenario& scenario, const Outcome& outcome);

}  // namespace tarvik::lab
