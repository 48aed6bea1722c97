#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "bench/k7_messages.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// Everything that the K7 server of the bench is told. As it stands: every unit is live, and the service
/// starts and stops at once.
struct K7Scenario {
  /// How the service takes a request to stop.
  enum class Stop {
    Obeyed,
    Ignored,  ///< taken, and nothing follows
    Refused   ///< not taken
  };

  struct Unit {
    K7Verdict verdict = K7Verdict::Live;
    bool reboots = false;  ///< restarts before every check
  };

  uint16_t port = kK7Port;             ///< 0 = one that is free
  std::map<std::string, Unit> units;   ///< by the address as the caller writes it
  K7Verdict others = K7Verdict::Live;  ///< what every unit is that is not named
  bool silent = false;                 ///< no datagram is answered
  int32_t startTakes = 0;              ///< milliseconds
  bool startsNever = false;            ///< stays in "start pending"
  int32_t stopTakes = 0;               ///< milliseconds
  Stop stop = Stop::Obeyed;
};

/// Reads a scenario's text; bench/README.md describes it. Throws ScenarioError.
K7Scenario ReadK7Scenario(std::string_view text);

/// The K7 server without its network and without the service around it.
class K7Server {
 public:
  explicit K7Server(K7Scenario scenario) : scenario_(std::move(scenario)) {}

  const K7Scenario& Scenario() const { return scenario_; }

  /// The answer to a datagram; empty = none. State A counts a unit's restarts from 1, state B the checks; the
  /// further output is 1 when the unit has restarted since the check whose state A was handed in.
  std::string Answer(std::string_view datagram);

 private:
  K7Scenario scenario_;
  std::map<std::string, int32_t> restarts_;
};

/// Answers what comes to the socket for so many milliseconds.
void ServeK7(K7Server& server, const Socket& socket, int64_t milliseconds);

}  // namespace tarvik::bench
