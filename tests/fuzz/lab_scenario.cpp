#include <string_view>

#include "lab/faults/scenario.h"
#include "tests/fuzz/fuzzer.h"

/// Any scenario text is read, or rejected with its file and line.
TARVIK_FUZZER(lab_scenario) {
  try {
    tarvik::lab::ReadScenario("any", {reinterpret_cast<const char*>(data), size});
  } catch (const tarvik::lab::ScenarioError&) {
  }
}
