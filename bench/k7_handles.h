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

/// The handles that the stand-in of the K7 API has given out, each able to reach one server.
class K7Handles {
 public:
  /// `waiting`: milliseconds for one answer; each request is sent three times at most.
  explicit K7Handles(int64_t waiting) : waiting_(waiting) {}

  K7Error Allocate(int32_t& handle);
  K7Error Connect(int32_t handle, const std::string& host, uint16_t port);
  /// `reply` is what the server says of the unit when the result is None.
  K7Error Check(int32_t handle, const std::string& address, int32_t stateA, int32_t stateB, K7Reply& reply);
  K7Error Free(int32_t handle);

  size_t Count() const { return handles_.size(); }

 private:
  bool Exchange(const Socket& socket, K7Request request, K7Reply& reply);

  int64_t waiting_;
  std::map<int32_t, Socket> handles_;  ///< none in it = not connected
  int32_t latest_ = 0;
  uint32_t number_ = 0;
};

}  // namespace tarvik::bench
