#include "lab/controller.h"

#include <fstream>
#include <sstream>

namespace tarvik::lab {
namespace {

using Command = std::vector<std::string>;

Command In(const Laboratory& laboratory, Host host, const Command& command) {
  Command whole = {"ip", "netns", "exec", laboratory.Namespace(host)};
  whole.insert(whole.end(), command.begin(), command.end());
  return whole;
}

// The scenario comes by its standard input.
Command ControllerAt(int port) { return {TARVIK_CONTROLLER, "--port", std::to_string(port), "-"}; }

Process::Options ErrorsToo() {
  Process::Options options;
  options.errorsWithOutput = true;
  return options;
}

}  // namespace

Controller::Controller(const Laboratory& laboratory, Host host, const std::string& scenario)
    : Controller(In(laboratory, host, ControllerAt(kLibraryPort)), scenario) {}

Controller::Controller(const std::string& scenario) : Controller(ControllerAt(0), scenario) {}

Controller::Controller(const std::vector<std::string>& command, const std::string& scenario)
    : process_(command, ErrorsToo()) {
  process_.Write(scenario);
  process_.CloseInput();
  const std::string listening = "listening on port ";
  const std::string line = process_.ReadLine(std::chrono::seconds(30));
  if (!line.starts_with(listening)) throw LabError("The controller: " + line);
  port_ = std::stoi(line.substr(listening.size()));
}

std::string BenchScenario(const std::string& name) {
  const std::string path = TARVIK_SCENARIOS "/" + name + ".scenario";
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  if (text.str().empty()) throw LabError("There is no scenario " + path);
  return text.str();
}

}  // namespace tarvik::lab
