#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "bench/controller_messages.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// The CNC library stand-in's own result codes. All others come from the controller.
inline constexpr int16_t kResultBadHandle = -8;
inline constexpr int16_t kResultNoHost = -101;        ///< host name unknown
inline constexpr int16_t kResultNoConnection = -102;  ///< refused, or host unreachable
inline constexpr int16_t kResultTimeOut = -103;
inline constexpr int16_t kResultConnectionLost = -104;  ///< the connection ended during the call
inline constexpr int16_t kResultBadReply = -105;        ///< the reply is malformed
inline constexpr int16_t kResultNoHandle = -106;        ///< all handles are in use
inline constexpr int16_t kResultBadArgument = 4;        ///< invalid argument

/// The open handles of the CNC library's stand-in. Each is a connection to a controller.
class NxConnections {
 public:
  /// Connects, sends the access code (may be empty) and returns a result code; `handle` is set only with 0.
  /// The time-out, in seconds, applies to both together, and later to each call on the handle; see
  /// EffectiveTimeOut.
  int16_t Allocate(const std::string& host, uint16_t port, const std::string& accessCode, int32_t timeOut,
                   uint16_t& handle);

  /// Sends a request and waits for the reply. With result 0 `body` has exactly `bodySize` bytes. After a
  /// time-out, a lost connection or a malformed reply, all later calls return kResultConnectionLost.
  int16_t Ask(uint16_t handle, const Request& request, size_t bodySize, std::string& body);

  /// Closes the connection. Returns 0 or kResultBadHandle.
  int16_t Free(uint16_t handle);

  /// The handle's time-out in seconds; 0 for an invalid handle.
  int32_t TimeOut(uint16_t handle) const;

  size_t Count() const { return connections_.size(); }

 private:
  struct Connection {
    Socket socket;
    int32_t timeOut = 0;
  };

  int16_t FindFreeHandle(uint16_t& handle);

  std::map<uint16_t, Connection> connections_;
  uint16_t lastHandle_ = 0;
};

/// The time-out to use, in seconds: 10 for 0 and below, otherwise at most an hour.
int32_t EffectiveTimeOut(int32_t timeOut);

}  // namespace tarvik::bench
