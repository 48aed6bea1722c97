#include <cstddef>
#include <cstdint>

#include "bench/controller_scenario.h"
#include "bench/scenario_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    tarvik::bench::ReadControllerScenario({reinterpret_cast<const char*>(data), size});
  } catch (const tarvik::bench::ScenarioError&) {
  }
  return 0;
}
