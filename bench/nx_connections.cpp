#include "bench/nx_connections.h"

#include <utility>

namespace tarvik::bench {
namespace {

constexpr int32_t kDefaultTimeOutSeconds = 10;
constexpr int32_t kMaxTimeOutSeconds = 3600;
constexpr size_t kMaxNxHandles = 32;

bool WaitFor(const Socket& socket, bool forWriting, int64_t deadline) {
  while (true) {
    const int64_t left = deadline - MonotonicMs();
    if (left <= 0) return false;
    std::vector<PollEntry> polled = {{&socket, forWriting}};
    WaitForAny(polled, left);
    if (polled[0].ready) return true;
  }
}

int16_t Exchange(const Socket& socket, const Request& request, size_t bodySize, int64_t deadline,
                 std::string& body) {
  std::string toSend = RequestMessage(request);
  while (!toSend.empty()) {
    if (!WaitFor(socket, true, deadline)) return kResultTimeOut;
    if (socket.Send(toSend) == Transfer::Finished) return kResultConnectionLost;
  }
  std::string received;
  bool broken = false;
  std::optional<std::string> payload;
  while (!(payload = TakePayload(received, broken))) {
    if (broken) return kResultBadReply;
    if (!WaitFor(socket, false, deadline)) return kResultTimeOut;
    if (socket.Receive(received) == Transfer::Finished) return kResultConnectionLost;
  }
  std::optional<Reply> reply = ParseReply(*payload);
  // Each request has exactly one reply, so extra bytes are an error.
  if (!reply || !received.empty()) return kResultBadReply;
  if (reply->body.size() != (reply->result == 0 ? bodySize : 0)) return kResultBadReply;
  body = std::move(reply->body);
  return reply->result;
}

bool EndsConnection(int16_t result) {
  return result == kResultTimeOut || result == kResultConnectionLost || result == kResultBadReply;
}

}  // namespace

int32_t EffectiveTimeOut(int32_t timeOut) {
  return timeOut <= 0 ? kDefaultTimeOutSeconds : timeOut < kMaxTimeOutSeconds ? timeOut : kMaxTimeOutSeconds;
}

int16_t NxConnections::FindFreeHandle(uint16_t& handle) {
  if (connections_.size() >= kMaxNxHandles) return kResultNoHandle;
  do {
    ++lastHandle_;
  } while (lastHandle_ == 0 || connections_.contains(lastHandle_));
  handle = lastHandle_;
  return 0;
}

int16_t NxConnections::Allocate(const std::string& host, uint16_t port, const std::string& accessCode,
                                int32_t timeOut, uint16_t& handle) {
  Connection connection;
  connection.timeOut = EffectiveTimeOut(timeOut);
  const int64_t deadline = MonotonicMs() + int64_t{1000} * connection.timeOut;
  const std::optional<uint32_t> address = ResolveHost(host);
  if (!address) return kResultNoHost;
  connection.socket = Socket::StartConnectTcp({*address, port});
  if (!connection.socket.IsOpen()) return kResultNoConnection;
  if (!WaitFor(connection.socket, true, deadline)) return kResultTimeOut;
  if (!connection.socket.Connected()) return kResultNoConnection;
  Request request;
  request.accessCode = accessCode;
  std::string body;
  int16_t result = Exchange(connection.socket, request, 0, deadline, body);
  uint16_t number = 0;
  if (result == 0) result = FindFreeHandle(number);
  if (result != 0) return result;
  connections_.emplace(number, std::move(connection));
  handle = number;
  return 0;
}

int16_t NxConnections::Ask(uint16_t handle, const Request& request, size_t bodySize, std::string& body) {
  const auto found = connections_.find(handle);
  if (found == connections_.end()) return kResultBadHandle;
  Connection& connection = found->second;
  if (!connection.socket.IsOpen()) return kResultConnectionLost;
  const int64_t deadline = MonotonicMs() + int64_t{1000} * connection.timeOut;
  const int16_t result = Exchange(connection.socket, request, bodySize, deadline, body);
  // Otherwise a late reply would be mistaken for the next request's.
  if (EndsConnection(result)) connection.socket.Close();
  return result;
}

int16_t NxConnections::Free(uint16_t handle) {
  return connections_.erase(handle) != 0 ? 0 : kResultBadHandle;
}

int32_t NxConnections::TimeOut(uint16_t handle) const {
  const auto found = connections_.find(handle);
  return found == connections_.end() ? 0 : found->second.timeOut;
}

}  // namespace tarvik::bench
