#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

#include "bench/sockets.h"

namespace tarvik::bench {
namespace {

constexpr size_t kPiece = 16384;

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

Socket Make(int type) { return Socket(::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)); }

int File(const Socket& socket) { return static_cast<int>(socket.Handle()); }

bool Bind(const Socket& socket, const Endpoint& own) {
  const sockaddr_in address = SystemAddress(own);
  return ::bind(File(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool Connect(const Socket& socket, const Endpoint& to) {
  const sockaddr_in address = SystemAddress(to);
  return ::connect(File(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
         errno == EINPROGRESS;
}

Transfer AfterError() {
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR ? Transfer::NotYet : Transfer::Finished;
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
  if (IsOpen()) ::close(static_cast<int>(handle_));
  handle_ = kNone;
}

Socket Socket::ListenTcp(const Endpoint& own) {
  Socket socket = Make(SOCK_STREAM);
  // Else a controller cannot be switched on again soon after it was switched off.
  const int yes = 1;
  ::setsockopt(File(socket), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  if (!Bind(socket, own) || ::listen(File(socket), SOMAXCONN) != 0) socket.Close();
  return socket;
}

Socket Socket::BindUdp(const Endpoint& own) {
  Socket socket = Make(SOCK_DGRAM);
  if (!Bind(socket, own)) socket.Close();
  return socket;
}

Socket Socket::StartConnectTcp(const Endpoint& to) {
  Socket socket = Make(SOCK_STREAM);
  if (!Connect(socket, to)) socket.Close();
  return socket;
}

Socket Socket::ConnectUdp(const Endpoint& to) {
  Socket socket = Make(SOCK_DGRAM);
  if (!Connect(socket, to)) socket.Close();
  return socket;
}

uint16_t Socket::Port() const {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  if (::getsockname(File(*this), reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
  return FromSystem(address).port;
}

bool Socket::Connected() const {
  int error = 0;
  socklen_t length = sizeof error;
  return ::getsockopt(File(*this), SOL_SOCKET, SO_ERROR, &error, &length) == 0 && error == 0;
}

Socket Socket::Accept() const {
  return Socket(::accept4(File(*this), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

Transfer Socket::Send(std::string& bytes) const {
  const ssize_t count = ::send(File(*this), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  if (count < 0) return AfterError();
  bytes.erase(0, static_cast<size_t>(count));
  return Transfer::Done;
}

Transfer Socket::Receive(std::string& bytes) const {
  char piece[kPiece];
  const ssize_t count = ::recv(File(*this), piece, sizeof piece, 0);
  if (count < 0) return AfterError();
  bytes.append(piece, static_cast<size_t>(count));
  return count == 0 ? Transfer::Finished : Transfer::Done;
}

std::optional<std::string> Socket::ReceiveDatagram(Endpoint& from, Transfer& state) const {
  char piece[kPiece];
  sockaddr_in address{};
  socklen_t length = sizeof address;
  const ssize_t count =
      ::recvfrom(File(*this), piece, sizeof piece, 0, reinterpret_cast<sockaddr*>(&address), &length);
  state = count < 0 ? AfterError() : Transfer::Done;
  if (count < 0) return std::nullopt;
  from = FromSystem(address);
  return std::string(piece, static_cast<size_t>(count));
}

bool Socket::SendDatagram(std::string_view bytes, const Endpoint& to) const {
  const sockaddr_in address = SystemAddress(to);
  return ::sendto(File(*this), bytes.data(), bytes.size(), MSG_NOSIGNAL,
                  reinterpret_cast<const sockaddr*>(&address), sizeof address) >= 0;
}

void WaitForAny(std::vector<Waiting>& sockets, int64_t milliseconds) {
  std::vector<pollfd> files;
  for (const Waiting& waiting : sockets) {
    const short events = waiting.forWriting ? POLLOUT : POLLIN;
    files.push_back({File(*waiting.socket), events, 0});
  }
  ::poll(files.data(), files.size(), static_cast<int>(std::clamp<int64_t>(milliseconds, 0, 60000)));
  for (size_t i = 0; i < files.size(); ++i) sockets[i].ready = files[i].revents != 0;
}

int64_t Milliseconds() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void StartNetwork() {}

}  // namespace tarvik::bench
