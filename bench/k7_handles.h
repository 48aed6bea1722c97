#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "bench/k7_messages.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// Error codes of the K7 API.
enum class K7Error : uint32_t {
  None = 0,
  InvalidHandle = 0x1009F000,
  NoEmptyHandle = 0x1009F002,
  NotConnected = 0x1009F003,
  UnitNotRecognized = 0x1009F004,
  ServerUnknown = 0x1009F005,
  CannotConnect = 0x1009F101,
};

/// The open handles of the K7 API's stand-in. Each can be connected to one K7 server.
class K7Handles {
 public:
  /// Waits `replyTimeOutMs` for each reply and sends each request at most three times.
  explicit K7Handles(int64_t replyTimeOutMs) : replyTimeOutMs_(replyTimeOutMs) {}

  /// Allocates one of at most 32 handles, not connected yet.
  K7Error Allocate(int32_t& handle);
  /// Resolves the host and connects the handle once the server has replied.
  K7Error Connect(int32_t handle, const std::string& host, uint16_t port);
  /// Asks the connected server for a unit's state. `reply` is only set when the server answers.
  K7Error Check(int32_t handle, const std::string& address, int32_t stateA, int32_t stateB, K7Reply& reply);
  /// Closes the handle and its connection.
  K7Error Free(int32_t handle);

  size_t Count() const { return handles_.size(); }

 private:
  bool Exchange(const Socket& socket, K7Request request, K7Reply& reply);

  int64_t replyTimeOutMs_;
  std::map<int32_t, Socket> handles_;  ///< a closed socket = not connected
  int32_t lastHandle_ = 0;
  uint32_t lastRequestNumber_ = 0;
};

}  // namespace tarvik::bench
