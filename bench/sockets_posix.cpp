#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "bench/system_sockets.h"

namespace tarvik::bench {

Socket MakeSocket(int type) { return Socket(::socket(AF_INET, type | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)); }

Socket AcceptOn(SystemSocket listening) {
  return Socket(::accept4(listening, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

void CloseSocket(SystemSocket socket) { ::close(socket); }

void AllowReuse(SystemSocket socket) {
  const int yes = 1;
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

bool ConnectInProgress() { return errno == EINPROGRESS; }

Transfer TransferAfterError() {
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR ? Transfer::NotYet : Transfer::Finished;
}

void WaitForAny(std::vector<PollEntry>& sockets, int64_t milliseconds) {
  std::vector<pollfd> files;
  for (const PollEntry& polled : sockets) {
    const short events = polled.forWriting ? POLLOUT : POLLIN;
    files.push_back({NativeHandle(*polled.socket), events, 0});
  }
  ::poll(files.data(), files.size(), static_cast<int>(std::clamp<int64_t>(milliseconds, 0, 60000)));
  for (size_t i = 0; i < files.size(); ++i) sockets[i].ready = files[i].revents != 0;
}

void StartNetwork() {}

}  // namespace tarvik::bench
