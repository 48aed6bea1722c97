// What Windows answers where the laboratory cannot make it: the PC's cable is out, or a host on its own
// subnet is dead. docs/faults.md has these lines in its chapter on Windows.

#include <gtest/gtest.h>

#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

constexpr const wchar_t* kController = L"192.168.1.100";

/// A PC with the address 192.168.1.10, whose cable is out.
struct CableOutTest : testing::Test, FakePc {
  CableOutTest() { winsock.AddInterface("127.0.0.1", "255.0.0.0"); }

  /// The card's own address in the interface list, and the card without an address in the adapters' list.
  void AddListedCard() {
    winsock.AddInterface("192.168.1.10", "255.255.255.0");
    ipHelper.AddAdapter({"0.0.0.0"}, {"192.168.1.1"});
  }
};

TEST_F(CableOutTest, Without_an_adapter_the_mask_is_missing) {
  ASSERT_TRUE(ipHelper.adapters.empty());  // GetAdaptersInfo returns ERROR_NO_DATA
  EXPECT_FALSE(Check(kController));
  EXPECT_EQ(results.Lines(), Lines{L"Subnet mask is not specified"});
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(CableOutTest, A_card_with_an_address_but_no_adapter_has_no_gateway) {
  winsock.AddInterface("192.168.1.10", "255.255.255.0");
  EXPECT_FALSE(Check(L"192.168.2.100"));
  EXPECT_EQ(results.Lines().back(), L"Default Gateway is required but not specified");
}

TEST_F(CableOutTest, An_address_of_0_0_0_0_has_no_mask) {
  AddCard("0.0.0.0", "0.0.0.0", {"0.0.0.0"});
  EXPECT_FALSE(Check(kController));
  EXPECT_EQ(results.Lines(), Lines{L"Subnet mask is not specified"});
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(CableOutTest, An_automatic_private_address_has_no_gateway_to_the_controller) {
  AddCard("169.254.228.116", "255.255.0.0", {"0.0.0.0"});
  EXPECT_FALSE(Check(kController));
  EXPECT_EQ(results.Lines(),
            (Lines{L"Target is not exist on the same network", L"Start Gateway check...",
                   L"  Local      :169.254.228.116", L"  GateWay    :0.0.0.0", L"  SubnetMask :255.255.0.0",
                   L"  Target     :192.168.1.100", L"Default Gateway is required but not specified"}));
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(CableOutTest, An_address_that_is_still_listed_is_pinged_in_vain) {
  // Timed out, network unreachable, general failure.
  for (const uint32_t error : {11010U, 1231U, 11050U}) {
    results.ClearList();
    winsock.interfaceBytes.clear();
    AddListedCard();
    icmp.script = {FakeIcmp::TimedOut(error)};
    EXPECT_FALSE(Check(kController));
    EXPECT_EQ(results.Lines(),
              (Lines{L"PING test...", L"ICMP_Error:" + std::to_wstring(error), L"Cannot ping to the Target",
                     L"Please check Target's address, cable and power"}));
  }
}

TEST_F(CableOutTest, A_general_failure_in_a_reply_record_counts_as_a_reply) {
  AddListedCard();
  icmp.script = {FakeIcmp::Reply("192.168.1.10", 11050)};
  EXPECT_TRUE(Check(kController));
  EXPECT_EQ(results.Lines(), (Lines{L"PING test...", L"0001 Reply From 192.168.1.100: General Failure"}));
}

struct DeadHostTest : testing::Test, FakePc {
  DeadHostTest() {
    AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
    icmp.hosts[AddressNumber("192.168.1.100")] = FakeIcmp::Reply("192.168.1.10", 11003);
    icmp.hosts[AddressNumber("192.168.1.1")] = FakeIcmp::Reply("192.168.1.10", 11003);
  }
};

TEST_F(DeadHostTest, The_PCs_own_report_counts_as_a_reply_and_names_the_target) {
  EXPECT_TRUE(Check(kController, 2));
  EXPECT_EQ(results.Lines(),
            (Lines{L"PING test...", L"0001 Reply From 192.168.1.100: Destination Host Unreachable",
                   L"0002 Reply From 192.168.1.100: Destination Host Unreachable"}));
}

TEST_F(DeadHostTest, One_report_after_time_outs_is_enough) {
  icmp.script = {FakeIcmp::TimedOut(), FakeIcmp::TimedOut(), FakeIcmp::Reply("192.168.1.10", 11003)};
  EXPECT_TRUE(Check(kController, 3));
  EXPECT_EQ(results.Lines(), (Lines{L"PING test...", L"ICMP_Error:11010", L"ICMP_Error:11010",
                                    L"0003 Reply From 192.168.1.100: Destination Host Unreachable"}));
}

TEST_F(DeadHostTest, A_dead_gateway_that_the_PC_reports_counts_as_one_that_answers) {
  EXPECT_FALSE(Check(L"192.168.2.100"));
  const Lines& lines = results.Lines();
  ASSERT_GE(lines.size(), 8U);
  EXPECT_EQ(lines[6], L"GateWay (192.168.1.1) PING test ....");
  EXPECT_EQ(lines[7], L"0001 Reply From 192.168.1.1: Destination Host Unreachable");
  EXPECT_EQ(lines[8], L"Target (192.168.2.100) PING test...");
}

}  // namespace
}  // namespace tarvik::test
