#pragma once

#include <string>
#include <vector>

#include "lab/faults/scenario.h"

namespace tarvik::lab {

/// The technicians' page in Markdown: each fault with what the tool shows and what to do about it.
std::string FaultPage(const std::vector<Scenario>& scenarios);

}  // namespace tarvik::lab
