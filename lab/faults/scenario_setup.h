#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/faults/scenario.h"
#include "lab/network/laboratory.h"
#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

/// Where scenarios are set up, and with which programs.
struct ScenarioContext {
  WindowsPc& pc;
  const Laboratory& net;
  std::string program;         ///< path of the family's edition
  std::string generalProgram;  ///< path of the general edition
  std::string bench;           ///< folder of the 32-bit stand-in libraries
  std::string cacheFolder;
};

/// A scenario's fault, set up on the network. Destruction stops its servers; the network stays changed until
/// Laboratory::Reset.
class ScenarioSetup {
 public:
  /// The network must be in its initial state. Throws ScenarioError.
  ScenarioSetup(const ScenarioContext& context, const Scenario& scenario);
  ScenarioSetup(const ScenarioSetup&) = delete;
  ScenarioSetup& operator=(const ScenarioSetup&) = delete;
  ~ScenarioSetup();

 private:
  class Servers;

  void ChangeNetwork(const Change& change);
  void StartServer(const Change& change);
  void SetFilters(const Scenario& scenario) const;
  void SetNames(const Scenario& scenario) const;

  const ScenarioContext& context_;
  std::unique_ptr<Servers> servers_;
};

}  // namespace tarvik::lab
