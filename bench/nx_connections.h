#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "bench/controller_messages.h"
#include "bench/sockets.h"

namespace tarvik::bench {

/// Results that the stand-in of the CNC library gives of itself, beside those of the controller.
inline constexpr int16_t kResultBadHandle = -8;
inline constexpr int16_t kResultNoHost = -101;        ///< the host's name is not known
inline constexpr int16_t kResultNoConnection = -102;  ///< refused, or no way to the host
inline constexpr int16_t kResultTimeOut = -103;
inline constexpr int16_t kResultLost = -104;      ///< the connection has ended under the call
inline constexpr int16_t kResultNoAnswer = -105;  ///< what came back is no answer
inline constexpr int16_t kResultNoMemory = -106;  ///< no handle is free
inline constexpr int16_t kResultArgument = 4;     ///< an argument that no call can take

/// The handles that the stand-in of the CNC library has given out, each a connection to a controller.
class NxConnections {
 public:
  /// Connects and presents the access code (empty = none). The time-out, in seconds, holds for the whole of
  /// it, and afterwards for each call on the handle; 0 and less stand for 10, and an hour is the most.
  int16_t Allocate(const std::string& host, uint16_t port, const std::string& accessCode, int32_t timeOut,
                   uint16_t& handle);

  /// Asks the controller. With result 0 `body` has exactly `bodySize` bytes. After a time-out or a broken
  /// connection every further call on the handle is kResultLost.
  int16_t Ask(uint16_t handle, const Request& request, size_t bodySize, std::string& body);

  int16_t Free(uint16_t handle);

  /// The handle's time-out in seconds; 0 when there is no such handle.
  int32_t TimeOut(uint16_t handle) const;

  size_t Count() const { return connections_.size(); }

 private:
  struct Connection {
    Socket socket;
    int32_t timeOut = 0;
  };

  int16_t FreeNumber(uint16_t& handle);

  std::map<uint16_t, Connection> connections_;
  uint16_t latest_ = 0;
};

/// The time-out that is really used for the one that was passed, in seconds.
int32_t EffectiveTimeOut(int32_t timeOut);

}  // namespace tarvik::bench
