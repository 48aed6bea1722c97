#pragma once

#include <string>
#include <vector>

#include "lab/host/process.h"
#include "lab/network/laboratory.h"

namespace tarvik::lab {

/// TCP port on which the CNC library expects a controller.
inline constexpr int kLibraryPort = 8193;

/// The practice bench's simulated controller. It listens once constructed and stops on destruction.
class Controller {
 public:
  /// Starts it on a host of the laboratory, on the library's port. `scenario`: text of a bench scenario, see
  /// bench/README.md. Throws LabError when the scenario is malformed or the port is in use.
  Controller(const Laboratory& laboratory, Host host, const std::string& scenario);

  /// Starts it on this machine, on a free port.
  explicit Controller(const std::string& scenario);

  int Port() const { return port_; }

 private:
  Controller(const std::vector<std::string>& command, const std::string& scenario);

  Process process_;
  int port_ = 0;
};

/// The text of one of the bench's own scenarios, such as "all_well". Throws LabError when there is no such
/// file.
std::string BenchScenario(const std::string& name);

}  // namespace tarvik::lab
