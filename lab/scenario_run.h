#pragma once

#include "lab/scenario_ground.h"
#include "lab/scenario_outcome.h"

namespace tarvik::lab {

/// Makes the scenario's fault on a network that is as it was laid, does what the technician does, and takes
/// down what the tool shows, every measured time as "time=Nms". A box that the scenario does not expect is
/// answered with its OK. Throws ScenarioError when the fault cannot be made, LabError when the tool does not
/// come to rest.
Outcome RunScenario(const ScenarioContext& context, const Scenario& scenario);

}  // namespace tarvik::lab
