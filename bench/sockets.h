#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::bench {

/// An IPv4 address in host byte order (127.0.0.1 = 0x7F000001) and a port.
struct Endpoint {
  uint32_t address = 0;
  uint16_t port = 0;
};

/// Resolves a host name or dotted address (getaddrinfo); nothing when it is unknown.
std::optional<uint32_t> ResolveHost(const std::string& host);

/// The outcome of one call on a non-blocking socket.
enum class Transfer {
  Done,     ///< some bytes were transferred
  NotYet,   ///< the call would block
  Finished  ///< the peer closed the connection, or it is lost
};

/// Owns a non-blocking socket. A default-constructed one is closed.
class Socket {
 public:
  Socket() = default;
  explicit Socket(std::intptr_t handle) : handle_(handle) {}
  Socket(Socket&& other) noexcept : handle_(other.handle_) { other.handle_ = kNone; }
  Socket& operator=(Socket&& other) noexcept;
  ~Socket() { Close(); }

  /// These return a closed socket on failure. Port 0 lets the system choose a port.
  static Socket ListenTcp(const Endpoint& own);
  static Socket BindUdp(const Endpoint& own);
  /// Starts connecting. Done once the socket is writable; Connected() then returns whether it succeeded.
  static Socket StartConnectTcp(const Endpoint& to);
  /// A UDP socket that exchanges datagrams with this endpoint only.
  static Socket ConnectUdp(const Endpoint& to);

  bool IsOpen() const { return handle_ != kNone; }
  std::intptr_t Handle() const { return handle_; }
  void Close();

  /// The local port; 0 when unknown.
  uint16_t Port() const;
  /// True when a finished connection attempt succeeded.
  bool Connected() const;
  /// The next pending connection; a closed socket when no connection is pending.
  Socket Accept() const;

  /// Sends as much as possible and removes it from the front of `bytes`.
  Transfer Send(std::string& bytes) const;
  /// Appends the received bytes.
  Transfer Receive(std::string& bytes) const;

  /// One datagram and its sender. Nothing when none has arrived; `state` is then Finished if the peer's host
  /// reported that nothing listens on the port.
  std::optional<std::string> ReceiveDatagram(Endpoint& from, Transfer& state) const;
  bool SendDatagram(std::string_view bytes, const Endpoint& to) const;

 private:
  static constexpr std::intptr_t kNone = -1;

  std::intptr_t handle_ = kNone;
};

/// A socket to wait for.
struct PollEntry {
  const Socket* socket = nullptr;
  bool forWriting = false;  ///< until writable, otherwise until readable
  bool ready = false;       ///< set by WaitForAny
};

/// Waits until one socket is ready or the time is over; never longer than a minute.
void WaitForAny(std::vector<PollEntry>& sockets, int64_t milliseconds);

/// Milliseconds of a monotonic clock.
int64_t MonotonicMs();

/// Starts the socket library for the lifetime of the process (WSAStartup; nothing to do on POSIX).
void StartNetwork();

}  // namespace tarvik::bench
