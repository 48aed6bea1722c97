#include "lab/network/controller.h"

#include <fstream>
#include <sstream>

#include "lab/host/own_network.h"

namespace tarvik::lab {
namespace {

// "-": it reads the scenario from standard input.
std::vector<std::string> ControllerAt(int port) {
  return {TARVIK_CONTROLLER, "--port", std::to_string(port), "-"};
}

Process::Options WithErrors() {
  Process::Options options;
  options.errorsWithOutput = true;
  return options;
}

}  // namespace

Controller::Controller(const Laboratory& laboratory, Host host, const std::string& scenario)
    : Controller(InNamespace(laboratory.Namespace(host), ControllerAt(kLibraryPort)), scenario) {}

Controller::Controller(const std::string& scenario) : Controller(ControllerAt(0), scenario) {}

Controller::Controller(const std::vector<std::string>& command, const std::string& scenario)
    : process_(command, WithErrors()) {
  process_.Write(scenario);
  process_.CloseInput();
  const std::string listening = "listening on port ";
  const std::string line = process_.ReadLine(std::chrono::seconds(30));
  if (!line.starts_with(listening)) throw LabError("The controller does not start: " + line);
  port_ = std::stoi(line.substr(listening.size()));
}

std::string BenchScenario(const std::string& name) {
  const std::string path = TARVIK_SCENARIOS "/" + name + ".scenario";
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  if (text.str().empty()) throw LabError("Cannot read " + path);
  return text.str();
}

}  // namespace tarvik::lab
