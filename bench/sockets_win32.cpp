#include "bench/sockets.h"

#include <algorithm>
#include <utility>

#include "platform/windows_win32.h"
// After winsock2.h.
#include <ws2tcpip.h>

namespace tarvik::bench {
namespace {

constexpr int kPiece = 16384;

sockaddr_in SystemAddress(const Endpoint& endpoint) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = ::htons(endpoint.port);
  address.sin_addr.s_addr = ::htonl(endpoint.address);
  return address;
}

Endpoint FromSystem(const sockaddr_in& address) {
  return {::ntohl(address.sin_addr.s_addr), ::ntohs(address.sin_port)};
}

SOCKET File(const Socket& socket) { return static_cast<SOCKET>(socket.Handle()); }

Socket NeverWaiting(SOCKET handle) {
  Socket socket(static_cast<std::intptr_t>(handle));
  u_long yes = 1;
  if (socket.IsOpen() && ::ioctlsocket(handle, static_cast<long>(FIONBIO), &yes) != 0) socket.Close();
  return socket;
}

Socket Make(int type) { return NeverWaiting(::socket(AF_INET, type, 0)); }

bool Bind(const Socket& socket, const Endpoint& own) {
  const sockaddr_in address = SystemAddress(own);
  return ::bind(File(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool Connect(const Socket& socket, const Endpoint& to) {
  const sockaddr_in address = SystemAddress(to);
  return ::connect(File(socket), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
         ::WSAGetLastError() == WSAEWOULDBLOCK;
}

Transfer AfterError() {
  return ::WSAGetLastError() == WSAEWOULDBLOCK ? Transfer::NotYet : Transfer::Finished;
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
  if (IsOpen()) ::closesocket(File(*this));
  handle_ = kNone;
}

Socket Socket::ListenTcp(const Endpoint& own) {
  Socket socket = Make(SOCK_STREAM);
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
  int length = sizeof address;
  if (::getsockname(File(*this), reinterpret_cast<sockaddr*>(&address), &length) != 0) return 0;
  return FromSystem(address).port;
}

bool Socket::Connected() const {
  int error = 0;
  int length = sizeof error;
  return ::getsockopt(File(*this), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) == 0 &&
         error == 0;
}

Socket Socket::Accept() const { return NeverWaiting(::accept(File(*this), nullptr, nullptr)); }

Transfer Socket::Send(std::string& bytes) const {
  const int count = ::send(File(*this), bytes.data(), static_cast<int>(bytes.size()), 0);
  if (count < 0) return AfterError();
  bytes.erase(0, static_cast<size_t>(count));
  return Transfer::Done;
}

Transfer Socket::Receive(std::string& bytes) const {
  char piece[kPiece];
  const int count = ::recv(File(*this), piece, kPiece, 0);
  if (count < 0) return AfterError();
  bytes.append(piece, static_cast<size_t>(count));
  return count == 0 ? Transfer::Finished : Transfer::Done;
}

std::optional<std::string> Socket::ReceiveDatagram(Endpoint& from, Transfer& state) const {
  char piece[kPiece];
  sockaddr_in address{};
  int length = sizeof address;
  const int count = ::recvfrom(File(*this), piece, kPiece, 0, reinterpret_cast<sockaddr*>(&address), &length);
  state = count < 0 ? AfterError() : Transfer::Done;
  if (count < 0) return std::nullopt;
  from = FromSystem(address);
  return std::string(piece, static_cast<size_t>(count));
}

bool Socket::SendDatagram(std::string_view bytes, const Endpoint& to) const {
  const sockaddr_in address = SystemAddress(to);
  return ::sendto(File(*this), bytes.data(), static_cast<int>(bytes.size()), 0,
                  reinterpret_cast<const sockaddr*>(&address), sizeof address) >= 0;
}

void WaitForAny(std::vector<Waiting>& sockets, int64_t milliseconds) {
  const int64_t bounded = std::clamp<int64_t>(milliseconds, 0, 60000);
  fd_set readable;
  fd_set writable;
  fd_set failed;
  FD_ZERO(&readable);
  FD_ZERO(&writable);
  // An attempt to connect that fails shows here alone.
  FD_ZERO(&failed);
  for (const Waiting& waiting : sockets) {
    fd_set& wanted = waiting.forWriting ? writable : readable;
    FD_SET(File(*waiting.socket), &wanted);
    FD_SET(File(*waiting.socket), &failed);
  }
  timeval time = {static_cast<long>(bounded / 1000), static_cast<long>(bounded % 1000 * 1000)};
  if (sockets.empty()) {
    ::Sleep(static_cast<DWORD>(bounded));
    return;
  }
  const bool some = ::select(0, &readable, &writable, &failed, &time) > 0;
  for (Waiting& waiting : sockets) {
    fd_set& wanted = waiting.forWriting ? writable : readable;
    waiting.ready =
        some && (FD_ISSET(File(*waiting.socket), &wanted) || FD_ISSET(File(*waiting.socket), &failed));
  }
}

int64_t Milliseconds() { return static_cast<int64_t>(::GetTickCount64()); }

void StartNetwork() {
  WSADATA data;
  ::WSAStartup(0x0202, &data);
}

}  // namespace tarvik::bench
