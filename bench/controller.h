#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/controller_scenario.h"

namespace tarvik::bench {

/// What a controller does upon a request.
struct ControllerAction {
  int32_t delay = 0;        ///< milliseconds to wait before it
  std::string bytes;        ///< to be sent; may be empty
  bool disconnect = false;  ///< the connection ends behind the bytes
};

/// What a controller remembers of one connection.
struct ControllerSession {
  bool connected = false;  ///< the connect request has got result 0
  DetailError detail;      ///< of the latest PMC error
};

/// A controller without its network: requests in, answers out. Its memory begins as the scenario says.
class Controller {
 public:
  explicit Controller(ControllerScenario scenario);

  /// `now`: milliseconds since the controller was switched on. A payload that is no request ends the
  /// connection, and so does every request but the first kind before a connection stands.
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
