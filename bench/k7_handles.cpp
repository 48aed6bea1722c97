#include "bench/k7_handles.h"

#include <optional>
#include <utility>

namespace tarvik::bench {
namespace {

constexpr size_t kMaxK7Handles = 32;
constexpr int kMaxTries = 3;

/// The reply to the request with this number; nothing when the deadline passes first.
std::optional<K7Reply> WaitForReply(const Socket& socket, uint32_t number, int64_t deadline) {
  while (true) {
    const int64_t left = deadline - MonotonicMs();
    if (left <= 0) return std::nullopt;
    std::vector<PollEntry> polled = {{&socket, false}};
    WaitForAny(polled, left);
    if (!polled[0].ready) continue;
    Endpoint from;
    Transfer state = Transfer::Done;
    const std::optional<std::string> datagram = socket.ReceiveDatagram(from, state);
    // The host reported "port unreachable": no server is listening.
    if (state == Transfer::Finished) return std::nullopt;
    if (!datagram) continue;
    const std::optional<K7Reply> reply = ParseK7Reply(*datagram);
    if (reply && reply->number == number) return reply;
  }
}

}  // namespace

K7Error K7Handles::Allocate(int32_t& handle) {
  if (handles_.size() >= kMaxK7Handles) return K7Error::NoEmptyHandle;
  do {
    lastHandle_ = lastHandle_ == INT32_MAX ? 1 : lastHandle_ + 1;
  } while (handles_.contains(lastHandle_));
  handles_[lastHandle_];
  handle = lastHandle_;
  return K7Error::None;
}

K7Error K7Handles::Connect(int32_t handle, const std::string& host, uint16_t port) {
  const auto found = handles_.find(handle);
  if (found == handles_.end()) return K7Error::InvalidHandle;
  const std::optional<uint32_t> address = ResolveHost(host);
  if (!address) return K7Error::ServerUnknown;
  Socket socket = Socket::ConnectUdp({*address, port});
  K7Reply reply;
  if (!socket.IsOpen() || !Exchange(socket, {}, reply)) return K7Error::CannotConnect;
  found->second = std::move(socket);
  return K7Error::None;
}

K7Error K7Handles::Check(int32_t handle, const std::string& address, int32_t stateA, int32_t stateB,
                         K7Reply& reply) {
  const auto found = handles_.find(handle);
  if (found == handles_.end()) return K7Error::InvalidHandle;
  const K7Request request{K7Request::Kind::Check, 0, stateA, stateB, address};
  if (!found->second.IsOpen() || !Exchange(found->second, request, reply)) return K7Error::NotConnected;
  return reply.verdict == K7Verdict::Unknown ? K7Error::UnitNotRecognized : K7Error::None;
}

K7Error K7Handles::Free(int32_t handle) {
  return handles_.erase(handle) != 0 ? K7Error::None : K7Error::InvalidHandle;
}

bool K7Handles::Exchange(const Socket& socket, K7Request request, K7Reply& reply) {
  // UDP datagrams can be lost.
  for (int i = 0; i < kMaxTries; ++i) {
    request.number = ++lastRequestNumber_;
    std::string datagram = K7Datagram(request);
    if (socket.Send(datagram) != Transfer::Done) continue;
    if (const auto answer = WaitForReply(socket, request.number, MonotonicMs() + replyTimeOutMs_)) {
      reply = *answer;
      return true;
    }
  }
  return false;
}

}  // namespace tarvik::bench
