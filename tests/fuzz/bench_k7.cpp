#include <string_view>

#include "bench/k7_server.h"
#include "bench/scenario_text.h"
#include "tests/fuzz/fuzzer.h"

// Any datagram, and any scenario text.
TARVIK_FUZZER(bench_k7) {
  using namespace tarvik::bench;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  K7Server server{K7Scenario()};
  ParseK7Reply(server.Answer(text));
  ParseK7Reply(text);
  try {
    ReadK7Scenario(text);
  } catch (const ScenarioError&) {
  }
}
