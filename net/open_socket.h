#pragma once

#include "net/winsock.h"

namespace tarvik {

/// A socket, closed on destruction.
class OpenSocket {
 public:
  OpenSocket(Winsock& winsock, int type, int protocol)
      : winsock_(winsock),
        socket_(winsock.WSASocketA(Winsock::kAddressFamilyInternet, type, protocol, nullptr, 0, 0)) {}
  OpenSocket(const OpenSocket&) = delete;
  OpenSocket& operator=(const OpenSocket&) = delete;
  ~OpenSocket() {
    if (IsOpen()) Close();
  }

  /// False when the library could not open a socket.
  bool IsOpen() const { return socket_ != Winsock::kInvalidSocket; }
  Winsock::Socket Get() const { return socket_; }
  /// False when the library reports an error; the socket is not used again either way.
  bool Close() {
    const Winsock::Socket socket = socket_;
    socket_ = Winsock::kInvalidSocket;
    return winsock_.closesocket(socket) == 0;
  }

 private:
  Winsock& winsock_;
  Winsock::Socket socket_;
};

}  // namespace tarvik
