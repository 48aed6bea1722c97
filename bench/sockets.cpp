#include "bench/sockets.h"

#include <chrono>
#include <utility>

#include "bench/system_sockets.h"

namespace tarvik::bench {
namespace {

constexpr SystemLength kChunkBytes = 16384;

sockaddr_in SystemAddress(const Endpoint& endpoint) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(endpoint.port);
  address.sin_addr.s_addr = htonl(endpoint.address);
  return address;
}

Endpoint FromSystem(const sockaddr_in& address) {
  return {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
}

bool Bind(const Socket& socket, const Endpoint& own) {
  const sockaddr_in address = SystemAddress(own);
  return ::bind(NativeHandle(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool Connect(const Socket& socket, const Endpoint& to) {
  const sockaddr_in address = SystemAddress(to);
  return ::connect(NativeHandle(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
         ConnectInProgress();
}

}  // namespace

std::optional<uint32_t> ResolveHost(const std::string& host) {
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), nullptr, &wanted, &found) != 0) return std::nullopt;
  const uint32_t address = FromSystem(*reinterpret_cast<const sockaddr_in*>(found->ai_addr)).address;
  ::freeaddrinfo(found);
  return address;
}

Socket& Socket::operator=(Socket&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

void Socket::Close() {
  if (IsOpen()) CloseSocket(NativeHandle(*this));
  handle_ = kNone;
}

Socket Socket::ListenTcp(const Endpoint& own) {
  Socket socket = MakeSocket(SOCK_STREAM);
  // Otherwise a controller could not be restarted while old connections are in TIME_WAIT.
  AllowReuse(NativeHandle(socket));
  if (!Bind(socket, own) || ::listen(NativeHandle(socket), SOMAXCONN) != 0) socket.Close();
  return socket;
}

Socket Socket::BindUdp(const Endpoint& own) {
  Socket socket = MakeSocket(SOCK_DGRAM);
  if (!Bind(socket, own)) socket.Close();
  return socket;
}

Socket Socket::StartConnectTcp(const Endpoint& to) {
  Socket socket = MakeSocket(SOCK_STREAM);
  if (!Connect(socket, to)) socket.Close();
  return socket;
}

Socket Socket::ConnectUdp(const Endpoint& to) {
  Socket socket = MakeSocket(SOCK_DGRAM);
  if (!Connect(socket, to)) socket.Close();
  return socket;
}

uint16_t Socket::Port() const {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  if (::getsockname(NativeHandle(*this), reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
  return FromSystem(address).port;
}

bool Socket::Connected() const {
  int error = 0;
  socklen_t length = sizeof error;
  return ::getsockopt(NativeHandle(*this), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) ==
             0 &&
         error == 0;
}

Socket Socket::Accept() const { return AcceptOn(NativeHandle(*this)); }

Transfer Socket::Send(std::string& bytes) const {
  const auto count =
      ::send(NativeHandle(*this), bytes.data(), static_cast<SystemLength>(bytes.size()), kSendFlags);
  if (count < 0) return TransferAfterError();
  bytes.erase(0, static_cast<size_t>(count));
  return Transfer::Done;
}

Transfer Socket::Receive(std::string& bytes) const {
  char piece[kChunkBytes];
  const auto count = ::recv(NativeHandle(*this), piece, kChunkBytes, 0);
  if (count < 0) return TransferAfterError();
  bytes.append(piece, static_cast<size_t>(count));
  return count == 0 ? Transfer::Finished : Transfer::Done;
}

std::optional<std::string> Socket::ReceiveDatagram(Endpoint& from, Transfer& state) const {
  char piece[kChunkBytes];
  sockaddr_in address{};
  socklen_t length = sizeof address;
  const auto count =
      ::recvfrom(NativeHandle(*this), piece, kChunkBytes, 0, reinterpret_cast<sockaddr*>(&address), &length);
  state = count < 0 ? TransferAfterError() : Transfer::Done;
  if (count < 0) return std::nullopt;
  from = FromSystem(address);
  return std::string(piece, static_cast<size_t>(count));
}

bool Socket::SendDatagram(std::string_view bytes, const Endpoint& to) const {
  const sockaddr_in address = SystemAddress(to);
  return ::sendto(NativeHandle(*this), bytes.data(), static_cast<SystemLength>(bytes.size()), kSendFlags,
                  reinterpret_cast<const sockaddr*>(&address), sizeof address) >= 0;
}

int64_t MonotonicMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace tarvik::bench
