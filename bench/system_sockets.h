#pragma once

// What the systems do differently with the same sockets. Only sockets.cpp and the two files that implement
// this include it.

#ifdef _WIN32
#include "platform/windows_win32.h"
// After winsock2.h.
#include <ws2tcpip.h>
#else
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#endif

#include "bench/sockets.h"

namespace tarvik::bench {

#ifdef _WIN32
using SystemSocket = SOCKET;
using SystemLength = int;
inline constexpr int kSendFlags = 0;
#else
using SystemSocket = int;
using SystemLength = size_t;
/// A connection that is lost is told by the call, not by a signal.
inline constexpr int kSendFlags = MSG_NOSIGNAL;
#endif

inline SystemSocket File(const Socket& socket) { return static_cast<SystemSocket>(socket.Handle()); }

/// A socket that never waits; none when the system refuses.
Socket MakeSocket(int type);
Socket AcceptOn(SystemSocket listening);
void CloseSocket(SystemSocket socket);

/// A port can be listened on again right after it was given up. Nothing to be done where that is so anyway.
void AllowReuse(SystemSocket socket);

/// The last call, a connect, has failed only in that it is not finished yet.
bool ConnectsStill();
/// What the last call, which moved nothing, has found.
Transfer AfterError();

}  // namespace tarvik::bench
