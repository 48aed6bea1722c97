#include "bench/controller_server.h"

#include <algorithm>

#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

// With the listener below 64 (FD_SETSIZE), the most that Windows' select can wait for.
constexpr size_t kMaxConnections = 60;
// Beyond this many unsent answers the connection is not read: the client sends requests without reading
// answers.
constexpr size_t kMaxQueuedAnswers = 16;

}  // namespace

ControllerServer::ControllerServer(ControllerScenario scenario, const Endpoint& own)
    : controller_(std::move(scenario)), listener_(Socket::ListenTcp(own)), startedAt_(MonotonicMs()) {
  if (!listener_.IsOpen()) throw ScenarioError("cannot listen on port " + std::to_string(own.port));
  port_ = listener_.Port();
}

void ControllerServer::Step(int64_t milliseconds) {
  std::vector<PollEntry> polled;
  const int64_t begin = MonotonicMs();
  int64_t wakeTime = begin + milliseconds;
  const bool accepting = listener_.IsOpen() && connections_.size() < kMaxConnections;
  if (accepting) polled.push_back({&listener_, false});
  for (Connection& connection : connections_) {
    if (!connection.answers.empty()) wakeTime = std::min(wakeTime, connection.answers.front().due);
    if (!connection.toSend.empty()) {
      polled.push_back({&connection.socket, true});
    } else if (connection.answers.size() < kMaxQueuedAnswers) {
      polled.push_back({&connection.socket, false});
    }
  }
  WaitForAny(polled, wakeTime - begin);
  const int64_t now = MonotonicMs();
  for (Connection& connection : connections_) {
    const bool readable = std::any_of(polled.begin(), polled.end(), [&connection](const PollEntry& one) {
      return one.socket == &connection.socket && one.ready && !one.forWriting;
    });
    if (readable) Receive(connection, now);
    SendDueAnswers(connection, now);
  }
  connections_.remove_if([](const Connection& connection) { return connection.closed; });
  if (accepting && polled.front().ready) AcceptOne();
}

void ControllerServer::AcceptOne() {
  Socket socket = listener_.Accept();
  if (!socket.IsOpen()) return;
  connections_.emplace_back().socket = std::move(socket);
  ++accepted_;
  // Once the listener is closed the system refuses all later connections.
  const int32_t max = controller_.Scenario().maxConnections;
  if (max != 0 && accepted_ >= max) listener_.Close();
}

void ControllerServer::Receive(Connection& connection, int64_t now) {
  if (connection.socket.Receive(connection.received) == Transfer::Finished) {
    connection.closed = true;
    return;
  }
  bool broken = false;
  while (connection.answers.size() < kMaxQueuedAnswers) {
    const std::optional<std::string> payload = TakePayload(connection.received, broken);
    if (!payload) break;
    ControllerAction action = controller_.Answer(connection.session, *payload, now - startedAt_);
    connection.answers.push_back({now + action.delayMs, std::move(action.bytes), action.disconnect});
  }
  if (broken) connection.closed = true;
}

void ControllerServer::SendDueAnswers(Connection& connection, int64_t now) {
  while (!connection.answers.empty() && connection.answers.front().due <= now && !connection.closeWhenSent) {
    Answer& answer = connection.answers.front();
    connection.toSend += answer.bytes;
    connection.closeWhenSent = answer.disconnect;
    connection.answers.pop_front();
  }
  if (!connection.toSend.empty() && connection.socket.Send(connection.toSend) == Transfer::Finished) {
    connection.closed = true;
  }
  if (connection.closeWhenSent && connection.toSend.empty()) connection.closed = true;
}

}  // namespace tarvik::bench
