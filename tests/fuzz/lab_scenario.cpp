#include <string_view>

#include "lab/faults/scenario.h"
#include "tests/fuzz/fuzzer.h"

/// A fault's scenario: any text is read, or refused with its file and line.
TARVIK_FUZZER(lab_scenario) {
  try {
    tarvik::lab::ReadScenario("any", {reinterpret_cast<const char*>(data), size});
  } catch (const tarvik::lab::ScenarioError&) {
  }
}
