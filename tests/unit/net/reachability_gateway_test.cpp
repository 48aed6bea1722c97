// The part of the check that only a target outside the PC's own subnets needs.

#include <gtest/gtest.h>

#include "net/reachability_check.h"
#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

struct ReachabilityGatewayTest : testing::Test, FakePc {};

constexpr const wchar_t* kBeyondGateway = L"192.168.2.100";

TEST_F(ReachabilityGatewayTest, A_target_in_another_subnet_is_pinged_after_the_gateway) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  icmp.AddHost("192.168.2.100");
  EXPECT_TRUE(Check(kBeyondGateway));
  EXPECT_EQ(
      results.Lines(),
      (Lines{L"Target is not exist on the same network", L"Start Gateway check...",
             L"  Local      :192.168.1.10", L"  GateWay    :192.168.1.1", L"  SubnetMask :255.255.255.0",
             L"  Target     :192.168.2.100", L"GateWay (192.168.1.1) PING test ....",
             L"0001 Reply From 192.168.1.1: bytes=32 time=1ms TTL=64", L"Target (192.168.2.100) PING test...",
             L"0001 Reply From 192.168.2.100: bytes=32 time=1ms TTL=64"}));
}

TEST_F(ReachabilityGatewayTest, A_missing_gateway_is_reported) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  ipHelper.adapters.clear();
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines(),
            (Lines{L"Target is not exist on the same network", L"Start Gateway check...",
                   L"  Local      :192.168.1.10", L"  SubnetMask :255.255.255.0",
                   L"  Target     :192.168.2.100", L"Default Gateway is required but not specified"}));
}

TEST_F(ReachabilityGatewayTest, An_empty_gateway_is_shown_but_counts_as_missing) {
  AddCard("192.168.1.10", "255.255.255.0", {""});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines().at(3), L"  GateWay    :");
  EXPECT_EQ(results.Lines().back(), L"Default Gateway is required but not specified");
}

TEST_F(ReachabilityGatewayTest, The_gateway_0_0_0_0_is_shown_but_counts_as_missing) {
  AddCard("192.168.1.10", "255.255.255.0", {"0.0.0.0"});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines().at(3), L"  GateWay    :0.0.0.0");
  EXPECT_EQ(results.Lines().back(), L"Default Gateway is required but not specified");
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(ReachabilityGatewayTest, The_details_list_every_gateway) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1", "192.168.1.2"});
  Check(kBeyondGateway);
  EXPECT_EQ(results.Lines().at(3), L"  GateWay    :192.168.1.1");
  EXPECT_EQ(results.Lines().at(4), L"  GateWay    :192.168.1.2");
  EXPECT_EQ(results.Lines().at(5), L"  SubnetMask :255.255.255.0");
}

TEST_F(ReachabilityGatewayTest, With_two_addresses_no_details_are_shown) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  AddCard("10.1.2.3", "255.0.0.0", {});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines(), (Lines{L"Target is not exist on the same network", L"Start Gateway check...",
                                    L"Default Gateway is required but not specified"}));
}

TEST_F(ReachabilityGatewayTest, A_gateway_outside_its_subnet_is_never_pinged) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.3.1"});
  icmp.AddHost("192.168.3.1");
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(Lines(results.Lines().end() - 3, results.Lines().end()),
            (Lines{L"  Target     :192.168.2.100", L"Subnetmask Mismatch",
                   L"Cannot access to the Gateway from this PC."}));
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(ReachabilityGatewayTest, A_gateway_in_the_subnet_of_another_address_is_not_usable) {
  AddCard("192.168.1.10", "255.255.255.0", {"10.0.0.1"});
  AddCard("10.1.2.3", "255.0.0.0", {});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines().back(), L"Cannot access to the Gateway from this PC.");
}

TEST_F(ReachabilityGatewayTest, A_missing_gateway_and_one_outside_its_subnet_are_a_mismatch) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.3.1", "0.0.0.0"});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines().back(), L"Cannot access to the Gateway from this PC.");
}

TEST_F(ReachabilityGatewayTest, Unusable_gateways_are_skipped) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.3.1"});
  AddCard("10.1.2.3", "255.0.0.0", {"0.0.0.0", "10.0.0.1"});
  icmp.AddHost("10.0.0.1");
  icmp.AddHost("192.168.2.100");
  EXPECT_TRUE(Check(kBeyondGateway));
  EXPECT_EQ(Pinged(), (Lines{L"10.0.0.1", L"192.168.2.100"}));
}

TEST_F(ReachabilityGatewayTest, A_gateway_that_does_not_answer_ends_the_check) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.2.100");
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(Lines(results.Lines().end() - 4, results.Lines().end()),
            (Lines{L"GateWay (192.168.1.1) PING test ....", L"ICMP_Error:11010",
                   L"Cannot ping to the Gateway", L"Please check Gateway's address, cable and power"}));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.1"});
}

TEST_F(ReachabilityGatewayTest, The_next_gateway_is_tried_after_one_that_does_not_answer) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1", "192.168.1.2", "192.168.1.3"});
  icmp.AddHost("192.168.1.2");
  icmp.AddHost("192.168.2.100");
  EXPECT_TRUE(Check(kBeyondGateway));
  EXPECT_EQ(Pinged(), (Lines{L"192.168.1.1", L"192.168.1.2", L"192.168.2.100"}));
}

TEST_F(ReachabilityGatewayTest, Gateways_are_tried_in_the_order_of_the_addresses) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  AddCard("10.1.2.3", "255.0.0.0", {"10.0.0.1"});
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(Pinged(), (Lines{L"192.168.1.1", L"10.0.0.1"}));
  EXPECT_EQ(results.Lines().back(), L"Please check Gateway's address, cable and power");
}

TEST_F(ReachabilityGatewayTest, A_target_in_another_subnet_that_does_not_answer_fails) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  EXPECT_FALSE(Check(kBeyondGateway));
  EXPECT_EQ(Lines(results.Lines().end() - 4, results.Lines().end()),
            (Lines{L"Target (192.168.2.100) PING test...", L"ICMP_Error:11010", L"Cannot ping to the Target",
                   L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityGatewayTest, The_count_applies_to_the_gateway_and_to_the_target) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  icmp.AddHost("192.168.2.100");
  EXPECT_TRUE(Check(kBeyondGateway, 3));
  EXPECT_EQ(icmp.requests.size(), 6u);
  EXPECT_EQ(icmp.requests.front().handle, 0x1CEB00DA);
}

TEST_F(ReachabilityGatewayTest, A_router_that_reports_the_target_unreachable_counts_as_an_answer) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  icmp.hosts[AddressNumber("192.168.2.100")] = FakeIcmp::Reply("192.168.1.1", 11003);
  EXPECT_TRUE(Check(kBeyondGateway));
  EXPECT_EQ(results.Lines().back(), L"0001 Reply From 192.168.2.100: Destination Host Unreachable");
}

TEST_F(ReachabilityGatewayTest, The_all_ones_address_cannot_be_pinged) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  EXPECT_FALSE(Check(L"255.255.255.255"));
  EXPECT_EQ(results.Lines(),
            (Lines{L"Bad IP address (Get Host Name) 255.255.255.255", L"Cannot ping to the Target",
                   L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityGatewayTest, A_stop_after_the_gateways_answer_ends_the_check_without_more_lines) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  icmp.AddHost("192.168.2.100");
  pump.stopAt = 300;
  EXPECT_FALSE(Check(kBeyondGateway, 4));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.1"});
  EXPECT_EQ(results.Lines().back(), L"0001 Reply From 192.168.1.1: bytes=32 time=1ms TTL=64");
}

TEST_F(ReachabilityGatewayTest, A_stop_during_a_gateways_ping_tries_no_other_but_gives_a_verdict) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1", "192.168.1.2"});
  icmp.AddHost("192.168.1.2");
  pump.stopAt = 300;
  EXPECT_FALSE(Check(kBeyondGateway, 4));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.1"});
  EXPECT_EQ(Lines(results.Lines().end() - 2, results.Lines().end()),
            (Lines{L"Cannot ping to the Gateway", L"Please check Gateway's address, cable and power"}));
}

}  // namespace
}  // namespace tarvik::test
