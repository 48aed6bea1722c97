#pragma once

#include <string>
#include <vector>

#include "lab/scenario.h"

namespace tarvik::lab {

/// The page for technicians in Markdown: each fault, what the tool says of it, what to do.
std::string FaultPage(const std::vector<Scenario>& scenarios);

}  // namespace tarvik::lab
