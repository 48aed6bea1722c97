#include <string>

#include "bench/controller.h"
#include "tests/fuzz/fuzzer.h"

// Any bytes from the network, first as requests to a controller, then as replies to its client.
TARVIK_FUZZER(bench_messages) {
  using namespace tarvik::bench;
  static const ControllerScenario scenario = ReadControllerScenario(
      "pmc_counts D 0 9999 reads\npmc_counts R 5 9 every 3\npmc_error X 1 2 3 4\npmc_size C 7");
  Controller controller(scenario);
  ControllerSession session;
  session.connected = true;
  std::string received(reinterpret_cast<const char*>(data), size);
  bool broken = false;
  for (int64_t now = 0; const std::optional<std::string> payload = TakePayload(received, broken); ++now) {
    std::string answer = controller.Answer(session, *payload, now).bytes;
    if (const std::optional<std::string> back = TakePayload(answer, broken)) ParseReply(*back);
    ParseReply(*payload);
  }
}
