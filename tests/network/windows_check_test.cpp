// The Windows check on a PC with a network card. It sends nothing beyond the card.

#include "tests/network/lab_fixture.h"
#include "tests/windows/windows_check_fixture.h"

namespace tarvik::lab {
namespace {

class WindowsCheckOnCables : public OnCables<WindowsCheckTest<WindowsCheckOnCables>> {
 protected:
  /// Counts what the PC sends through its card, other than ARP requests.
  static void CountPackets() {
    Net().SetFilter(Host::Pc,
                    "table ip counted {\nchain out {\ntype filter hook output priority 0;\n"
                    "oif eth0 counter\n}\n}");
  }
  static bool NothingWasSent() {
    const auto command = InNamespace(Net().Namespace(Host::Pc), {"nft", "list", "table", "ip", "counted"});
    return lab::Run(command).output.find("packets 0 bytes 0") != std::string::npos;
  }
};

TEST_F(WindowsCheckOnCables, Pings_its_own_address_and_sends_nothing) {
  CountPackets();
  const std::string report = Check("network");
  const Verdicts expected = {{"network.echo_loopback", "observed"},
                             {"network.echo_own", "observed"},
                             {"network.interfaces", "observed"},
                             {"network.ping_own_address", "pass"}};
  EXPECT_EQ(VerdictsIn(report), expected) << report;
  EXPECT_TRUE(NothingWasSent());
}

TEST_F(WindowsCheckOnCables, A_product_that_cannot_send_an_echo_fails) {
  const PlantedFault fault{
      "", "", "", [](const std::string& folder) { ReplaceBytes(folder, "IcmpSendEcho", "IcmpSendEchX"); }};
  const std::string report = Check("network", Spoiled(fault));
  EXPECT_EQ(FailedIn(report), std::set<std::string>{"network.ping_own_address"}) << report;
}

}  // namespace
}  // namespace tarvik::lab
