#include "net/port_look.h"

#include <bit>

#include "net/addresses.h"
#include "net/open_socket.h"
#include "platform/scope_guard.h"

namespace tarvik {
namespace {

using report::PortAnswer;

constexpr uint32_t kPortTimeoutMs = 3000;
constexpr uint32_t kPortPollMs = 50;

PortLook LookOf(int error) {
  switch (error) {
    case Winsock::kConnectionRefused:
      return {PortAnswer::Refused, error};
    case Winsock::kTimedOut:
      return {PortAnswer::Silent, error};
    default:
      return {PortAnswer::Unknown, error};
  }
}

uint16_t NetworkOrder(uint16_t number) {
  return std::endian::native == std::endian::big ? number : static_cast<uint16_t>(number << 8 | number >> 8);
}

/// True when the attempt has ended; then `look` says how.
bool HasEnded(Winsock& winsock, Winsock::Socket socket, PortLook& look) {
  const TimeValue atOnce;
  SocketSet connected{1, {socket}};
  SocketSet failed{1, {socket}};
  const int ready = winsock.select(nullptr, &connected, &failed, atOnce);
  if (ready == 0) return false;
  if (ready == Winsock::kSocketError) {
    look = LookOf(winsock.WSAGetLastError());
  } else if (failed.fd_count != 0) {
    int error = 0;
    int length = sizeof error;
    if (winsock.getsockopt(socket, Winsock::kSocketLevel, Winsock::kErrorOption, &error, &length) != 0)
      error = winsock.WSAGetLastError();
    look = LookOf(error);
  } else if (connected.fd_count != 0) {
    look = {PortAnswer::Open, 0};
  }
  return true;
}

PortLook Connect(Winsock& winsock, report::Pump& pump, const InternetAddress& address) {
  const OpenSocket socket(winsock, Winsock::kTypeStream, Winsock::kProtocolTcp);
  if (!socket.IsOpen()) return LookOf(winsock.WSAGetLastError());
  uint32_t nonBlocking = 1;
  // A blocking attempt would freeze the window for 20 seconds.
  if (winsock.ioctlsocket(socket.Get(), Winsock::kSetNonBlocking, &nonBlocking) != 0)
    return LookOf(winsock.WSAGetLastError());
  if (winsock.connect(socket.Get(), address) == 0) return {PortAnswer::Open, 0};
  if (const int error = winsock.WSAGetLastError(); error != Winsock::kWouldBlock) return LookOf(error);

  PortLook look;
  for (uint32_t waited = 0; waited < kPortTimeoutMs; waited += kPortPollMs) {
    pump.SleepUntil(kPortPollMs, [&pump] { return pump.StopRequested(); });
    if (pump.StopRequested()) return {};
    if (HasEnded(winsock, socket.Get(), look)) return look;
  }
  return {PortAnswer::Silent, 0};
}

}  // namespace

PortLook AskPort(Winsock& winsock, report::Pump& pump, uint32_t address, uint16_t port) {
  if (address == 0 || address == kNoAddress || pump.StopRequested()) return {};
  WsaData data;
  // Returns the error itself: without a session there is no last error.
  if (const int error = winsock.WSAStartup(Winsock::kVersion11, data); error != 0) return LookOf(error);
  const ScopeGuard session([&winsock] { winsock.WSACleanup(); });
  return Connect(winsock, pump, {Winsock::kAddressFamilyInternet, NetworkOrder(port), address, {}});
}

}  // namespace tarvik
