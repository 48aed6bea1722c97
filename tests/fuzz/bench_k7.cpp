#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bench/k7_server.h"
#include "bench/scenario_text.h"

// What came in a datagram, and the text of a scenario.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tarvik::bench;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  K7Server server{K7Scenario()};
  ParseK7Reply(server.Answer(text));
  ParseK7Reply(text);
  try {
    ReadK7Scenario(text);
  } catch (const ScenarioError&) {
  }
  return 0;
}
