// The network as Windows reports it: interface lists, echoes in the product's rhythm, both with and without
// the cable. Unattended, only this PC's own addresses are used.

#include <algorithm>

#include "lab/windows_check/echo_win32.h"

namespace tarvik::check {
namespace {

using ShownLines = std::vector<std::string>;

constexpr int kPingRunMs = 60000;
constexpr DWORD kInterfaceIsUp = 1;  // IFF_UP

std::string JoinedLines(const ShownLines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// An address that is up and has a mask, preferably one with a gateway, because cards of virtual machines
/// usually have none. 0 when no address fits.
InterfaceAddress OwnAddress() {
  InterfaceAddress own;
  for (const InterfaceAddress& each : InterfaceAddresses()) {
    if ((each.flags & kInterfaceIsUp) == 0 || each.address == 0 || each.mask == 0) continue;
    if (GatewayOf(each) != 0) return each;
    if (own.address == 0) own = each;
  }
  return own;
}

/// What the product shows when it pings the address once.
ShownLines ShownByPing(const Kit& kit, DWORD address) {
  Driver driver(kit);
  StartOptions options;
  options.arguments = FromUtf8("-LANGID 1 -PING_N 1 " + Dotted(address));
  RunningProduct product(kit, driver, options);
  product.WaitForMainWindow();
  return product.FollowRun(kPingRunMs);
}

void CheckProductPing(Kit& kit, const InterfaceAddress& own) {
  const ShownLines lines = ShownByPing(kit, own.address);
  const std::string start = "0001 Reply From " + Dotted(own.address) + ": bytes=32 time=";
  const bool good =
      lines.size() == 2 && lines[0] == "PING test..." && lines[1].compare(0, start.size(), start) == 0;
  kit.report.Expect("network.ping_own_address", "The product finds its own subnet and pings this PC", good,
                    JoinedLines(lines));
}

constexpr int kEchoesOfThisPc = 5;
constexpr int kEchoesOfOthers = 20;

void ObserveEchoes(Kit& kit, const char* id, const char* title, DWORD target, int count) {
  constexpr int kUnattendedEchoes = 2;
  kit.progress(title);
  kit.report.Observe(id, title, SendEchoes(target, kit.unattended ? kUnattendedEchoes : count));
}

/// Traffic on the cable: only with a user.
void ObserveOthers(Kit& kit, const InterfaceAddress& own) {
  const DWORD gateway = GatewayOf(own);
  if (gateway != 0)
    ObserveEchoes(kit, "network.echo_gateway", "Echoes to the gateway", gateway, kEchoesOfOthers);
  kit.progress("looking for an unused address");
  const DWORD unused = FreeAddress(own, gateway);
  if (unused == 0) {
    kit.report.Observe("network.echo_dead_host", "Echoes to an unused address of the own subnet",
                       "no unused address was found");
    return;
  }
  ObserveEchoes(kit, "network.echo_dead_host", "Echoes to an unused address of the own subnet", unused,
                kEchoesOfOthers);
  kit.report.Observe("network.ping_dead_host", "What the product shows for an unused address",
                     JoinedLines(ShownByPing(kit, unused)));
}

void ObserveWithoutCable(Kit& kit, const InterfaceAddress& own) {
  const DWORD gateway = GatewayOf(own);
  // Read before the question: after the answer the cable is already pulled.
  const std::string before = InterfaceLists();
  const DWORD target = gateway != 0 ? gateway : htonl(ntohl(own.address) ^ 1);
  if (!kit.ask(
          "Please pull the network cable or switch Wi-Fi off, then click Done. Skip leaves this step out."))
    return;
  constexpr int kUnpluggedMs = 20000;
  constexpr int kPluggedMs = 60000;
  constexpr int kEchoes = 5;
  WaitUntil(kUnpluggedMs, [&] { return InterfaceLists() != before; });
  kit.report.Observe("network.interfaces_without_cable", "Addresses of this PC without the cable",
                     InterfaceLists());
  kit.report.Observe("network.echo_without_cable", "Echoes on the own subnet without the cable",
                     SendEchoes(target, kEchoes));
  kit.report.Observe("network.ping_without_cable", "What the product shows without the cable",
                     JoinedLines(ShownByPing(kit, target)));
  kit.ask("Please plug the cable in again or switch Wi-Fi on, then click Done.");
  kit.progress("waiting for the network");
  WaitUntil(kPluggedMs, [&] { return OwnAddress().address == own.address; });
}

}  // namespace

void CheckNetwork(Kit& kit) {
  kit.report.Observe("network.interfaces", "Addresses of this PC in the three lists of Windows",
                     InterfaceLists());
  ObserveEchoes(kit, "network.echo_loopback", "Echoes to 127.0.0.1", htonl(INADDR_LOOPBACK), kEchoesOfThisPc);
  const InterfaceAddress own = OwnAddress();
  if (own.address == 0) {
    kit.report.Observe("network.no_address", "This PC has no address with a mask", "");
    return;
  }
  ObserveEchoes(kit, "network.echo_own", "Echoes to this PC's own address", own.address, kEchoesOfThisPc);
  kit.progress("the product pings this PC");
  CheckProductPing(kit, own);
  if (kit.unattended) return;
  ObserveOthers(kit, own);
  ObserveWithoutCable(kit, own);
}

}  // namespace tarvik::check
