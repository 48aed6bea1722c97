#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "bench/k7_messages.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// The configuration of the bench's K7 server. By default every unit is live, and the service starts and
/// stops immediately.
struct K7Scenario {
  /// How the service treats a stop request.
  enum class Stop {
    Obeyed,
    Ignored,  ///< accepted, but the service keeps running
    Refused   ///< rejected
  };

  struct Unit {
    K7Verdict verdict = K7Verdict::Live;
    bool reboots = false;  ///< restarts before each check
  };

  uint16_t port = kK7Port;             ///< 0 = any free port
  std::map<std::string, Unit> units;   ///< by address, as the caller spells it
  K7Verdict others = K7Verdict::Live;  ///< state of all units not listed
  bool silent = false;                 ///< never replies
  int32_t startPendingMs = 0;          ///< time in "start pending"
  bool neverStarts = false;            ///< stays in "start pending" forever
  int32_t stopPendingMs = 0;           ///< time in "stop pending"
  Stop stop = Stop::Obeyed;
};

/// Parses a scenario file; bench/README.md describes the format. Throws ScenarioError.
K7Scenario ReadK7Scenario(std::string_view text);

/// The logic of the K7 server, without a network and without the Windows service.
class K7Server {
 public:
  explicit K7Server(K7Scenario scenario) : scenario_(std::move(scenario)) {}

  const K7Scenario& Scenario() const { return scenario_; }

  /// The reply datagram; empty = no reply. State A counts a unit's restarts from 1. State B is the caller's
  /// state B plus 1. The extra output is 1 when the unit has restarted since the caller's state A.
  std::string Answer(std::string_view datagram);

 private:
  K7Scenario scenario_;
  std::map<std::string, int32_t> restarts_;
};

/// Waits up to `milliseconds` for one datagram and answers it.
void ServeK7(K7Server& server, const Socket& socket, int64_t milliseconds);

}  // namespace tarvik::bench
