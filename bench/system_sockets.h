#pragma once

// The differences between Windows and POSIX sockets. Included only by sockets.cpp and by the two files that
// implement these functions.

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
/// Reports a lost connection as an error, not as SIGPIPE.
inline constexpr int kSendFlags = MSG_NOSIGNAL;
#endif

inline SystemSocket NativeHandle(const Socket& socket) { return static_cast<SystemSocket>(socket.Handle()); }

/// Returns a non-blocking socket of SOCK_STREAM or SOCK_DGRAM; closed on failure.
Socket MakeSocket(int type);
Socket AcceptOn(SystemSocket listening);
void CloseSocket(SystemSocket socket);

/// Allows listening on a port again right after it was closed. Does nothing on Windows, where SO_REUSEADDR
/// would let two programs share the port.
void AllowReuse(SystemSocket socket);

/// True when the failed connect call has merely not finished yet.
bool ConnectInProgress();
/// The outcome of a transfer call that has just failed.
Transfer TransferAfterError();

}  // namespace tarvik::bench
