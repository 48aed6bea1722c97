#include <algorithm>

#include "bench/system_sockets.h"

namespace tarvik::bench {
namespace {

Socket NeverWaiting(SOCKET handle) {
  Socket socket(static_cast<std::intptr_t>(handle));
  u_long yes = 1;
  if (socket.IsOpen() && ::ioctlsocket(handle, static_cast<long>(FIONBIO), &yes) != 0) socket.Close();
  return socket;
}

}  // namespace

Socket MakeSocket(int type) { return NeverWaiting(::socket(AF_INET, type, 0)); }

Socket AcceptOn(SystemSocket listening) { return NeverWaiting(::accept(listening, nullptr, nullptr)); }

void CloseSocket(SystemSocket socket) { ::closesocket(socket); }

void AllowReuse(SystemSocket) {}

bool ConnectsStill() { return ::WSAGetLastError() == WSAEWOULDBLOCK; }

Transfer AfterError() {
  return ::WSAGetLastError() == WSAEWOULDBLOCK ? Transfer::NotYet : Transfer::Finished;
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

void StartNetwork() {
  WSADATA data;
  ::WSAStartup(0x0202, &data);
}

}  // namespace tarvik::bench
