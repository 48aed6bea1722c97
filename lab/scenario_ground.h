#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/laboratory.h"
#include "lab/scenario.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {

/// The PC and the network that scenarios are made on, and what they are made from.
struct ScenarioContext {
  WindowsPc& pc;
  const Laboratory& net;
  std::string program;         ///< the family's edition
  std::string generalProgram;  ///< the general one
  std::string bench;           ///< folder of the 32-bit stand-ins
  std::string cacheFolder;
};

/// A scenario's fault, made. Its servers run for as long as the object lives; the network stays as it is
/// until it is reset.
class ScenarioSetup {
 public:
  /// The network must be as it was laid. Throws ScenarioError with the file and the line.
  ScenarioSetup(const ScenarioContext& context, const Scenario& scenario);
  ScenarioSetup(const ScenarioSetup&) = delete;
  ScenarioSetup& operator=(const ScenarioSetup&) = delete;
  ~ScenarioSetup();

 private:
  class Servers;

  void Make(const Change& change);
  void MakeNetwork(const Change& change);
  void MakeServer(const Change& change);
  void SetFilters(const Scenario& scenario) const;
  void SetNames(const Scenario& scenario) const;

  const ScenarioContext& context_;
  std::unique_ptr<Servers> servers_;
};

}  // namespace tarvik::lab
