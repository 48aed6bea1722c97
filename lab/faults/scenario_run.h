#pragma once

#include "lab/faults/scenario_outcome.h"
#include "lab/faults/scenario_setup.h"

namespace tarvik::lab {

/// Sets up the scenario's fault on an unchanged network, performs the technician's steps and records what the
/// tool shows, with every measured time as "time=Nms". A message box that the scenario does not expect is
/// answered with OK. Throws ScenarioError when the fault cannot be set up, LabError when a run does not end.
Outcome RunScenario(const ScenarioContext& context, const Scenario& scenario);

}  // namespace tarvik::lab
