#pragma once

#include <string>

#include "lab/laboratory.h"
#include "lab/process.h"

namespace tarvik::lab {

inline constexpr int kLibraryPort = 8193;

/// The practice bench's simulated controller, switched on for as long as the object lives. It listens when
/// the object stands.
class Controller {
 public:
  /// In a host of the laboratory, on the library's port. `scenario` is the text of a scenario, see
  /// bench/README.md. Throws LabError when the scenario cannot be read or the port is taken.
  Controller(const Laboratory& laboratory, Host host, const std::string& scenario);

  /// On this machine, on a port that is free.
  explicit Controller(const std::string& scenario);

  int Port() const { return port_; }

 private:
  Controller(const std::vector<std::string>& command, const std::string& scenario);

  Process process_;
  int port_ = 0;
};

/// The text of one of the scenarios that come with the bench, such as "all_well".
std::string BenchScenario(const std::string& name);

}  // namespace tarvik::lab
