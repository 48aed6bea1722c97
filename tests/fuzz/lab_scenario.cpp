#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lab/scenario.h"

/// A fault's scenario: any text is read, or refused with its file and line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    tarvik::lab::ReadScenario("any", {reinterpret_cast<const char*>(data), size});
  } catch (const tarvik::lab::ScenarioError&) {
  }
  return 0;
}
