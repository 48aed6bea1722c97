#include "tests/lab/lab_fixture.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

class Reachability : public LabTest<Reachability> {};

const Lines kOtherSubnet = {"Target is not exist on the same network", "Start Gateway check..."};

Lines Together(const std::vector<Lines>& parts) {
  Lines all;
  for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

Lines Details(const Lines& gateways, const std::string& target) {
  Lines lines = {"  Local      :192.168.1.10"};
  for (const std::string& gateway : gateways) lines.push_back("  GateWay    :" + gateway);
  lines.push_back("  SubnetMask :255.255.255.0");
  lines.push_back("  Target     :" + target);
  return lines;
}

TEST_F(Reachability, A_target_on_the_same_subnet_is_pinged_at_once) {
  EXPECT_EQ(RunLadder(kNearAddress, 2),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64",
                   "0002 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, A_name_is_resolved_first) {
  Net().SetHostNames(Host::Pc, {{"cnc-1", kNearAddress}});
  EXPECT_EQ(RunLadder("cnc-1"), (Lines{"cnc-1 -> 192.168.1.100", "PING test...",
                                       "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, A_name_that_nobody_knows_ends_the_ladder) {
  Lines boxes;
  EXPECT_EQ(RunLadder("cnc-9", 1, [&boxes](const BoxUnderTest& box) { boxes.push_back(box.text); }),
            (Lines{"Cannot resolve specified host name to IP address", ""}));
  EXPECT_EQ(boxes, (Lines{"gethostbyname(cnc-9)=11001"}));
}

TEST_F(Reachability, A_dead_target_is_named) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(RunLadder(kNearAddress, 2),
            (Lines{"PING test...", "ICMP_Error:11010", "ICMP_Error:11010", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, A_target_behind_the_gateway_is_pinged_after_the_gateway) {
  EXPECT_EQ(RunLadder(kFarAddress), Together({kOtherSubnet,
                                              Details({"192.168.1.1"}, kFarAddress),
                                              {"GateWay (192.168.1.1) PING test ....",
                                               "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                                               "Target (192.168.2.100) PING test...",
                                               "0001 Reply From 192.168.2.100: bytes=32 time=Nms TTL=63"}}));
}

TEST_F(Reachability, A_dead_target_behind_the_gateway_is_named) {
  Net().PullCable(Host::Far);
  EXPECT_EQ(RunLadder(kFarAddress),
            Together({kOtherSubnet,
                      Details({"192.168.1.1"}, kFarAddress),
                      {"GateWay (192.168.1.1) PING test ....",
                       "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                       "Target (192.168.2.100) PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                       "Please check Target's address, cable and power"}}));
}

TEST_F(Reachability, A_router_that_knows_no_way_counts_as_an_answer) {
  EXPECT_EQ(RunLadder("192.168.3.100"),
            Together({kOtherSubnet,
                      Details({"192.168.1.1"}, "192.168.3.100"),
                      {"GateWay (192.168.1.1) PING test ....",
                       "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                       "Target (192.168.3.100) PING test...",
                       "0001 Reply From 192.168.3.100: Destination Net Unreachable"}}));
}

TEST_F(Reachability, A_dead_gateway_is_named_and_the_target_is_not_tried) {
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(RunLadder(kFarAddress, 2),
            Together({kOtherSubnet,
                      Details({"192.168.1.1"}, kFarAddress),
                      {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010", "ICMP_Error:11010",
                       "Cannot ping to the Gateway", "Please check Gateway's address, cable and power"}}));
}

TEST_F(Reachability, No_gateway_is_said_to_be_required) {
  Net().SetDefaultRoute(Host::Pc, "");
  // Windows reports a missing gateway as an entry of zeros, which is shown as it was read.
  EXPECT_EQ(RunLadder(kFarAddress), Together({kOtherSubnet,
                                              Details({"0.0.0.0"}, kFarAddress),
                                              {"Default Gateway is required but not specified"}}));
}

TEST_F(Reachability, A_gateway_outside_the_subnet_is_never_pinged) {
  Net().SetDefaultRoute(Host::Pc, "192.168.9.1");
  EXPECT_EQ(RunLadder(kFarAddress),
            Together({kOtherSubnet,
                      Details({"192.168.9.1"}, kFarAddress),
                      {"Subnetmask Mismatch", "Cannot access to the Gateway from this PC."}}));
}

TEST_F(Reachability, A_mask_that_is_too_narrow_sends_the_ladder_to_the_gateway) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/28"});
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  EXPECT_EQ(
      RunLadder(kNearAddress),
      Together(
          {kOtherSubnet,
           {"  Local      :192.168.1.10", "  GateWay    :192.168.1.1", "  SubnetMask :255.255.255.240",
            "  Target     :192.168.1.100", "GateWay (192.168.1.1) PING test ....",
            "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64", "Target (192.168.1.100) PING test...",
            "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}}));
}

TEST_F(Reachability, A_second_address_on_the_targets_subnet_is_enough) {
  Net().SetAddresses(Host::Pc, {"10.0.0.10/24", "192.168.1.10/24"});
  EXPECT_EQ(RunLadder(kNearAddress),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, A_second_card_on_the_targets_subnet_is_enough) {
  Net().SetAddresses(Host::Pc, {"10.0.0.10/24"});
  Net().AddCardToPc("192.168.1.11/24");
  EXPECT_EQ(RunLadder(kNearAddress),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, A_PC_with_more_than_ten_addresses_is_judged_by_the_first_ten) {
  // The loopback is the first address of every PC.
  for (const int others : {8, 9}) {
    SCOPED_TRACE(others);
    Lines addresses;
    for (int i = 1; i <= others; ++i) addresses.push_back("10.0." + std::to_string(i) + ".1/24");
    addresses.push_back("192.168.1.10/24");
    Net().SetAddresses(Host::Pc, addresses);
    const Lines lines = RunLadder(kNearAddress);
    if (others == 8) {
      EXPECT_EQ(lines, (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
    } else {
      EXPECT_EQ(Lines(lines.begin(), lines.begin() + 2), kOtherSubnet);
    }
  }
}

TEST_F(Reachability, With_several_addresses_the_details_are_left_out) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/24"});
  Net().AddCardToPc("10.0.0.10/24");
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  EXPECT_EQ(RunLadder(kFarAddress), Together({kOtherSubnet,
                                              {"GateWay (192.168.1.1) PING test ....",
                                               "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                                               "Target (192.168.2.100) PING test...",
                                               "0001 Reply From 192.168.2.100: bytes=32 time=Nms TTL=63"}}));
}

TEST_F(Reachability, A_target_that_drops_echoes_is_named) {
  Net().SetFilter(Host::Near,
                  "table ip silent {\nchain in {\n"
                  "type filter hook input priority 0;\n"
                  "icmp type echo-request drop\n"
                  "}\n}");
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                                            "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, Of_a_name_with_several_addresses_the_last_is_the_target) {
  Net().SetHostNames(Host::Pc, {{"cnc-2", kFarAddress}, {"cnc-2", kNearAddress}});
  EXPECT_EQ(RunLadder("cnc-2"), (Lines{"cnc-2 -> 192.168.1.100", "PING test...",
                                       "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, The_all_ones_address_cannot_be_pinged) {
  EXPECT_EQ(RunLadder("255.255.255.255"),
            (Lines{"Bad IP address (Get Host Name) 255.255.255.255", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, An_address_without_a_mask_is_told) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/0"});
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"Subnet mask is not specified"}));
}

TEST_F(Reachability, A_PC_without_any_address_has_no_mask) {
  Net().SetAddresses(Host::Pc, {});
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"Subnet mask is not specified"}));
}

TEST_F(Reachability, Both_addresses_of_one_card_get_its_gateway) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/24", "192.168.1.11/24"});
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(RunLadder(kFarAddress),
            Together({kOtherSubnet,
                      {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010",
                       "GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010",
                       "Cannot ping to the Gateway", "Please check Gateway's address, cable and power"}}));
}

TEST_F(Reachability, The_own_cable_pulled_looks_like_a_dead_target) {
  Net().PullCable(Host::Pc);
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                                            "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_the_gateway) {
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(RunLadder("-LANGID 0", kFarAddress),
            Together({{"通信相手は同じﾈｯﾄﾜｰｸ上にありません", "ｹﾞｰﾄｳｪｲの設定を確認します"},
                      Details({"192.168.1.1"}, kFarAddress),
                      {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010", "ｹﾞｰﾄｳｪｲにPingできません",
                       "ｹﾞｰﾄｳｪｲのIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください"}}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_the_target) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(RunLadder("-LANGID 0", kNearAddress),
            (Lines{"PING test...", "ICMP_Error:11010", "通信先にPingできません",
                   "通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください"}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_a_missing_mask_and_a_missing_gateway) {
  Net().SetDefaultRoute(Host::Pc, "");
  EXPECT_EQ(RunLadder("-LANGID 0", kFarAddress).back(), "ｹﾞｰﾄｳｪｲが必要ですが設定されていません");
  Net().SetAddresses(Host::Pc, {});
  EXPECT_EQ(RunLadder("-LANGID 0", kNearAddress), (Lines{"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません"}));
}

TEST_F(Reachability, A_name_that_nobody_knows_has_no_built_in_Japanese_text) {
  EXPECT_EQ(RunLadder("-LANGID 0", "cnc-9", 1, [](const BoxUnderTest&) {}), (Lines{""}));
}

TEST_F(Reachability, The_Japanese_file_has_a_text_for_every_way_out) {
  const std::string japanese = "-LOCALEID 1041 -LANGID -1";
  EXPECT_EQ(RunLadder(japanese, "cnc-9", 1, [](const BoxUnderTest&) {}),
            (Lines{"指定されたﾎｽﾄ名をIPｱﾄﾞﾚｽに変換できません", ""}));
  Net().SetDefaultRoute(Host::Pc, "192.168.9.1");
  const Lines lines = RunLadder(japanese, kFarAddress);
  EXPECT_EQ(Lines(lines.end() - 2, lines.end()),
            (Lines{"ｻﾌﾞﾈｯﾄﾏｽｸとｹﾞｰﾄｳｪｲの設定が合っていません", "このPCからｹﾞｰﾄｳｪｲにｱｸｾｽできません"}));
}

TEST_F(Reachability, Any_other_language_mode_has_the_built_in_English_texts) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(RunLadder("-LOCALEID 1041 -LANGID 1", kNearAddress),
            (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

}  // namespace
}  // namespace tarvik::lab
