#include "bench/controller_scenario.h"
#include "bench/scenario_text.h"
#include "tests/fuzz/fuzzer.h"

TARVIK_FUZZER(bench_scenario) {
  try {
    tarvik::bench::ReadControllerScenario({reinterpret_cast<const char*>(data), size});
  } catch (const tarvik::bench::ScenarioError&) {
  }
}
