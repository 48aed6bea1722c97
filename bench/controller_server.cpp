#include "bench/controller_server.h"

#include <algorithm>

#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

// Below what the system can wait for at once.
constexpr size_t kMostConnections = 60;
// A client that sends on without reading its answers is not listened to any more.
constexpr size_t kMostAnswers = 16;

}  // namespace

ControllerServer::ControllerServer(ControllerScenario scenario, const Endpoint& own)
    : controller_(std::move(scenario)), listener_(Socket::ListenTcp(own)), begun_(Milliseconds()) {
  if (!listener_.IsOpen()) throw ScenarioError("cannot listen on port " + std::to_string(own.port));
  port_ = listener_.Port();
}

void ControllerServer::Step(int64_t milliseconds) {
  std::vector<Waiting> waiting;
  const int64_t begin = Milliseconds();
  int64_t wakeUp = begin + milliseconds;
  const bool accepting = listener_.IsOpen() && connections_.size() < kMostConnections;
  if (accepting) waiting.push_back({&listener_, false});
  for (Connection& connection : connections_) {
    if (!connection.answers.empty()) wakeUp = std::min(wakeUp, connection.answers.front().due);
    if (!connection.toSend.empty()) {
      waiting.push_back({&connection.socket, true});
    } else if (connection.answers.size() < kMostAnswers) {
      waiting.push_back({&connection.socket, false});
    }
  }
  WaitForAny(waiting, wakeUp - begin);
  const int64_t now = Milliseconds();
  for (Connection& connection : connections_) {
    const bool readable = std::any_of(waiting.begin(), waiting.end(), [&connection](const Waiting& one) {
      return one.socket == &connection.socket && one.ready && !one.forWriting;
    });
    if (readable) Receive(connection, now);
    Proceed(connection, now);
  }
  connections_.remove_if([](const Connection& connection) { return connection.gone; });
  if (accepting && waiting.front().ready) AcceptOne();
}

void ControllerServer::AcceptOne() {
  Socket socket = listener_.Accept();
  if (!socket.IsOpen()) return;
  connections_.emplace_back().socket = std::move(socket);
  ++accepted_;
  // Without a listener the system itself refuses.
  const int32_t most = controller_.Scenario().connections;
  if (most != 0 && accepted_ >= most) listener_.Close();
}

void ControllerServer::Receive(Connection& connection, int64_t now) {
  if (connection.socket.Receive(connection.received) == Transfer::Finished) {
    connection.gone = true;
    return;
  }
  bool broken = false;
  while (connection.answers.size() < kMostAnswers) {
    const std::optional<std::string> payload = TakePayload(connection.received, broken);
    if (!payload) break;
    ControllerAction action = controller_.Answer(connection.session, *payload, now - begun_);
    connection.answers.push_back({now + action.delay, std::move(action.bytes), action.disconnect});
  }
  if (broken) connection.gone = true;
}

void ControllerServer::Proceed(Connection& connection, int64_t now) {
  while (!connection.answers.empty() && connection.answers.front().due <= now && !connection.ending) {
    Answer& answer = connection.answers.front();
    connection.toSend += answer.bytes;
    connection.ending = answer.disconnect;
    connection.answers.pop_front();
  }
  if (!connection.toSend.empty() && connection.socket.Send(connection.toSend) == Transfer::Finished) {
    connection.gone = true;
  }
  if (connection.ending && connection.toSend.empty()) connection.gone = true;
}

}  // namespace tarvik::bench
