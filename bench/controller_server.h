#pragma once

#include <cstdint>
#include <deque>
#include <list>
#include <string>

#include "bench/controller.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// A controller on the network. Serves all connections concurrently on the thread that calls Step.
class ControllerServer {
 public:
  /// Starts listening. Throws ScenarioError when the endpoint is not available.
  ControllerServer(ControllerScenario scenario, const Endpoint& own);

  uint16_t Port() const { return port_; }

  /// Waits up to `milliseconds` for network activity or a due answer and handles it.
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
    bool closeWhenSent = false;  ///< close once everything is sent
    bool closed = false;
  };

  void AcceptOne();
  void Receive(Connection& connection, int64_t now);
  void SendDueAnswers(Connection& connection, int64_t now);

  Controller controller_;
  Socket listener_;
  uint16_t port_ = 0;
  int64_t startedAt_ = 0;
  int32_t accepted_ = 0;
  std::list<Connection> connections_;
};

}  // namespace tarvik::bench
