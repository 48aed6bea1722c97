// The simulated controller:
//
//   practice_controller [--address ADDRESS] [--port NUMBER] SCENARIO
//
// ADDRESS is the address of this PC to listen on; without it, all of them.
// SCENARIO is a file, or "-" for standard input. Prints "listening on port N" once it accepts connections,
// which callers wait for, and runs until it is killed.

#include <cstdio>
#include <optional>
#include <string>

#include "bench/controller_server.h"
#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

constexpr uint16_t kLibraryPort = 8193;

std::string ReadAll(const std::string& name) {
  std::FILE* const file = name == "-" ? stdin : std::fopen(name.c_str(), "rb");
  if (file == nullptr) throw ScenarioError("cannot be opened");
  std::string text;
  char piece[4096];
  for (size_t count = 0; (count = std::fread(piece, 1, sizeof piece, file)) > 0;) text.append(piece, count);
  if (file != stdin) std::fclose(file);
  return text;
}

int Usage() {
  std::fprintf(stderr, "practice_controller [--address ADDRESS] [--port NUMBER] SCENARIO\n");
  return 2;
}

int Run(int count, char** arguments) {
  StartNetwork();
  Endpoint own{0, kLibraryPort};
  std::string scenario;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--port" && i + 1 < count) {
      const int64_t number = ParseNumber(arguments[++i]).value_or(-1);
      if (number < 0 || number > UINT16_MAX) return Usage();
      own.port = static_cast<uint16_t>(number);
    } else if (argument == "--address" && i + 1 < count) {
      const std::optional<uint32_t> address = ResolveHost(arguments[++i]);
      if (!address) return Usage();
      own.address = *address;
    } else if (scenario.empty()) {
      scenario = argument;
    } else {
      return Usage();
    }
  }
  if (scenario.empty()) return Usage();
  try {
    ControllerServer server(ReadControllerScenario(ReadAll(scenario)), own);
    std::printf("listening on port %d\n", server.Port());
    std::fflush(stdout);
    while (true) server.Step(60000);
  } catch (const ScenarioError& error) {
    std::fprintf(stderr, "%s: %s\n", scenario.c_str(), error.what());
    return 1;
  }
}

}  // namespace
}  // namespace tarvik::bench

int main(int count, char** arguments) { return tarvik::bench::Run(count, arguments); }
