#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/controller_scenario.h"

namespace tarvik::bench {

/// What a controller does in response to a request.
struct ControllerAction {
  int32_t delayMs = 0;      ///< wait before acting
  std::string bytes;        ///< to send; may be empty
  bool disconnect = false;  ///< close the connection after sending the bytes
};

/// The state of one connection.
struct ControllerSession {
  bool connected = false;  ///< the connect request returned 0
  DetailError detail;      ///< of the latest PMC error
};

/// The logic of a controller, without a network. The scenario sets its initial PMC memory.
class Controller {
 public:
  explicit Controller(ControllerScenario scenario);

  /// Handles a request. `now`: milliseconds since the controller was switched on. An invalid payload ends the
  /// connection, and so does any request other than Connect before Connect has succeeded.
  ControllerAction Answer(ControllerSession& session, std::string_view payload, int64_t now);

  const ControllerScenario& Scenario() const { return scenario_; }

 private:
  Reply Handle(ControllerSession& session, const Request& request, int64_t now);
  Reply ReadPmc(ControllerSession& session, const Request& request, int64_t now);
  std::optional<DetailError> PmcFaultOf(const Request& request) const;

  ControllerScenario scenario_;
  std::array<std::vector<uint8_t>, kPmcAreaCount> memory_;
  std::array<int32_t, kCallCount> requests_{};
  int32_t reads_ = 0;
};

}  // namespace tarvik::bench
