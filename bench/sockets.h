#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::bench {

/// An IPv4 address, in the order in which it is written: 127.0.0.1 = 0x7F000001.
struct Endpoint {
  uint32_t address = 0;
  uint16_t port = 0;
};

/// The address of a host name or a dotted address; nothing when it is not known.
std::optional<uint32_t> ResolveHost(const std::string& host);

/// What one call on a socket that does not wait has done.
enum class Transfer {
  Done,     ///< some bytes have moved
  NotYet,   ///< none can move now
  Finished  ///< the other side has ended the connection, or it is lost
};

/// A socket of the system that never waits; closed by its end. A default one is none.
class Socket {
 public:
  Socket() = default;
  explicit Socket(std::intptr_t handle) : handle_(handle) {}
  Socket(Socket&& other) noexcept : handle_(other.handle_) { other.handle_ = kNone; }
  Socket& operator=(Socket&& other) noexcept;
  ~Socket() { Close(); }

  /// Each is none when the system refuses. Port 0 lets the system choose one.
  static Socket ListenTcp(const Endpoint& own);
  static Socket BindUdp(const Endpoint& own);
  /// The connection is made when the socket becomes writable and Connected() is true then.
  static Socket StartConnectTcp(const Endpoint& to);
  /// UDP whose datagrams go to and come from that one endpoint.
  static Socket ConnectUdp(const Endpoint& to);

  bool IsOpen() const { return handle_ != kNone; }
  std::intptr_t Handle() const { return handle_; }
  void Close();

  /// The port it is bound to; 0 when that cannot be told.
  uint16_t Port() const;
  /// The attempt to connect has ended well.
  bool Connected() const;
  /// The next connection that has come; none when there is none.
  Socket Accept() const;

  /// Sends as much as goes and removes it from the front of `bytes`.
  Transfer Send(std::string& bytes) const;
  /// Appends what has come.
  Transfer Receive(std::string& bytes) const;

  /// One datagram; `from` is who sent it. Nothing when there is none, or when the last one sent by this
  /// socket has found nobody (`Finished` in `state`).
  std::optional<std::string> ReceiveDatagram(Endpoint& from, Transfer& state) const;
  bool SendDatagram(std::string_view bytes, const Endpoint& to) const;

 private:
  static constexpr std::intptr_t kNone = -1;

  std::intptr_t handle_ = kNone;
};

/// A socket that is waited for.
struct Waiting {
  const Socket* socket = nullptr;
  bool forWriting = false;  ///< for room to write, otherwise for something to read
  bool ready = false;       ///< out
};

/// Waits until one of them is ready, so many milliseconds at most (up to a minute).
void WaitForAny(std::vector<Waiting>& sockets, int64_t milliseconds);

/// Milliseconds of a clock that only goes forward.
int64_t Milliseconds();

/// Starts the system's network library, which then stays for as long as the process runs.
void StartNetwork();

}  // namespace tarvik::bench
