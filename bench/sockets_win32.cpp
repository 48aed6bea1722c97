#include <algorithm>

#include "bench/system_sockets.h"

namespace tarvik::bench {
namespace {

Socket NonBlocking(SOCKET handle) {
  Socket socket(static_cast<std::intptr_t>(handle));
  u_long yes = 1;
  if (socket.IsOpen() && ::ioctlsocket(handle, static_cast<long>(FIONBIO), &yes) != 0) socket.Close();
  return socket;
}

}  // namespace

Socket MakeSocket(int type) { return NonBlocking(::socket(AF_INET, type, 0)); }

Socket AcceptOn(SystemSocket listening) { return NonBlocking(::accept(listening, nullptr, nullptr)); }

void CloseSocket(SystemSocket socket) { ::closesocket(socket); }

void AllowReuse(SystemSocket) {}

bool ConnectInProgress() { return ::WSAGetLastError() == WSAEWOULDBLOCK; }

Transfer TransferAfterError() {
  return ::WSAGetLastError() == WSAEWOULDBLOCK ? Transfer::NotYet : Transfer::Finished;
}

void WaitForAny(std::vector<PollEntry>& sockets, int64_t milliseconds) {
  const int64_t bounded = std::clamp<int64_t>(milliseconds, 0, 60000);
  fd_set readable;
  fd_set writable;
  fd_set failed;
  FD_ZERO(&readable);
  FD_ZERO(&writable);
  // Winsock reports a failed connect only in this set.
  FD_ZERO(&failed);
  for (const PollEntry& polled : sockets) {
    fd_set& wanted = polled.forWriting ? writable : readable;
    FD_SET(NativeHandle(*polled.socket), &wanted);
    FD_SET(NativeHandle(*polled.socket), &failed);
  }
  timeval time = {static_cast<long>(bounded / 1000), static_cast<long>(bounded % 1000 * 1000)};
  if (sockets.empty()) {
    ::Sleep(static_cast<DWORD>(bounded));
    return;
  }
  const bool some = ::select(0, &readable, &writable, &failed, &time) > 0;
  for (PollEntry& polled : sockets) {
    fd_set& wanted = polled.forWriting ? writable : readable;
    polled.ready = some && (FD_ISSET(NativeHandle(*polled.socket), &wanted) ||
                            FD_ISSET(NativeHandle(*polled.socket), &failed));
  }
}

void StartNetwork() {
  WSADATA data;
  ::WSAStartup(0x0202, &data);
}

}  // namespace tarvik::bench
