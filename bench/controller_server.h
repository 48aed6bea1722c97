#pragma once

#include <cstdint>
#include <deque>
#include <list>
#include <string>

#include "bench/controller.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// A controller on the network. It serves all its connections side by side, on one thread.
class ControllerServer {
 public:
  /// Listens at once. Throws ScenarioError when the endpoint cannot be had.
  ControllerServer(ControllerScenario scenario, const Endpoint& own);

  uint16_t Port() const { return port_; }

  /// Waits for something to do, so many milliseconds at most, and does it.
  void Step(int64_t milliseconds);

 private:
  struct Answer {
    int64_t due = 0;
    std::string bytes;
    bool disconnect = false;
  };

  struct Connection {
    Socket socket;
    ControllerSession session;
    std::string received;
    std::deque<Answer> answers;
    std::string toSend;
    bool ending = false;  ///< goes when everything is sent
    bool gone = false;
  };

  void AcceptOne();
  void Receive(Connection& connection, int64_t now);
  void Proceed(Connection& connection, int64_t now);

  Controller controller_;
  Socket listener_;
  uint16_t port_ = 0;
  int64_t begun_ = 0;
  int32_t accepted_ = 0;
  std::list<Connection> connections_;
};

}  // namespace tarvik::bench
