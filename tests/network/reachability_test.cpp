// The reachability check on a real network: every way it can end, in each language.

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

class Reachability : public LabTest<Reachability> {
 protected:
  /// `arguments`: options, if any, and the target.
  Lines RunLadder(const std::string& arguments, const Listener& listener = {}) {
    return RunAtStart("-PING_N 1 " + arguments, listener);
  }
  Lines PingTwice(const std::string& target) { return RunAtStart("-PING_N 2 " + target); }
};

const Listener kIgnoringBoxes{.onBox = [](const BoxUnderTest&) {}};

const Lines kOtherSubnet = {"Target is not exist on the same network", "Start Gateway check..."};

Lines Details(const Lines& gateways, const std::string& target) {
  Lines lines = {"  Local      :192.168.1.10"};
  for (const std::string& gateway : gateways) lines.push_back("  GateWay    :" + gateway);
  lines.push_back("  SubnetMask :255.255.255.0");
  lines.push_back("  Target     :" + target);
  return lines;
}

TEST_F(Reachability, A_target_on_the_same_subnet_is_pinged_at_once) {
  EXPECT_EQ(PingTwice(kNearAddress),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64",
                   "0002 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, A_name_is_resolved_first) {
  Net().SetHostNames(Host::Pc, {{"cnc-1", kNearAddress}});
  EXPECT_EQ(RunLadder("cnc-1"), (Lines{"cnc-1 -> 192.168.1.100", "PING test...",
                                       "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, An_unknown_name_ends_the_ladder) {
  Lines boxes;
  EXPECT_EQ(RunLadder("cnc-9", {.onBox = [&boxes](const BoxUnderTest& box) { boxes.push_back(box.text); }}),
            (Lines{"Cannot resolve specified host name to IP address", ""}));
  EXPECT_EQ(boxes, (Lines{"gethostbyname(cnc-9)=11001"}));
}

TEST_F(Reachability, A_dead_target_is_reported) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(PingTwice(kNearAddress),
            (Lines{"PING test...", "ICMP_Error:11010", "ICMP_Error:11010", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, A_target_beyond_the_gateway_is_pinged_after_the_gateway) {
  EXPECT_EQ(RunLadder(kFarAddress), Joined({kOtherSubnet,
                                            Details({"192.168.1.1"}, kFarAddress),
                                            {"GateWay (192.168.1.1) PING test ....",
                                             "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                                             "Target (192.168.2.100) PING test...",
                                             "0001 Reply From 192.168.2.100: bytes=32 time=Nms TTL=63"}}));
}

TEST_F(Reachability, A_dead_target_beyond_the_gateway_is_reported) {
  Net().PullCable(Host::Far);
  EXPECT_EQ(RunLadder(kFarAddress),
            Joined({kOtherSubnet,
                    Details({"192.168.1.1"}, kFarAddress),
                    {"GateWay (192.168.1.1) PING test ....",
                     "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                     "Target (192.168.2.100) PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                     "Please check Target's address, cable and power"}}));
}

TEST_F(Reachability, A_routers_unreachable_reply_counts_as_an_answer) {
  EXPECT_EQ(
      RunLadder("192.168.3.100"),
      Joined({kOtherSubnet,
              Details({"192.168.1.1"}, "192.168.3.100"),
              {"GateWay (192.168.1.1) PING test ....",
               "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64", "Target (192.168.3.100) PING test...",
               "0001 Reply From 192.168.3.100: Destination Net Unreachable"}}));
}

TEST_F(Reachability, A_dead_gateway_is_reported_and_the_target_not_tried) {
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(PingTwice(kFarAddress),
            Joined({kOtherSubnet,
                    Details({"192.168.1.1"}, kFarAddress),
                    {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010", "ICMP_Error:11010",
                     "Cannot ping to the Gateway", "Please check Gateway's address, cable and power"}}));
}

TEST_F(Reachability, A_missing_gateway_is_reported) {
  Net().SetDefaultRoute(Host::Pc, "");
  // Windows returns a missing gateway as 0.0.0.0, which is shown as read.
  EXPECT_EQ(RunLadder(kFarAddress), Joined({kOtherSubnet,
                                            Details({"0.0.0.0"}, kFarAddress),
                                            {"Default Gateway is required but not specified"}}));
}

TEST_F(Reachability, A_gateway_outside_the_subnet_is_never_pinged) {
  Net().SetDefaultRoute(Host::Pc, "192.168.9.1");
  EXPECT_EQ(RunLadder(kFarAddress),
            Joined({kOtherSubnet,
                    Details({"192.168.9.1"}, kFarAddress),
                    {"Subnetmask Mismatch", "Cannot access to the Gateway from this PC."}}));
}

TEST_F(Reachability, A_mask_that_is_too_narrow_sends_the_ladder_to_the_gateway) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/28"});
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  EXPECT_EQ(
      RunLadder(kNearAddress),
      Joined({kOtherSubnet,
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

TEST_F(Reachability, Of_more_than_ten_addresses_the_first_ten_count) {
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

TEST_F(Reachability, With_several_addresses_the_details_are_omitted) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/24"});
  Net().AddCardToPc("10.0.0.10/24");
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  EXPECT_EQ(RunLadder(kFarAddress), Joined({kOtherSubnet,
                                            {"GateWay (192.168.1.1) PING test ....",
                                             "0001 Reply From 192.168.1.1: bytes=32 time=Nms TTL=64",
                                             "Target (192.168.2.100) PING test...",
                                             "0001 Reply From 192.168.2.100: bytes=32 time=Nms TTL=63"}}));
}

TEST_F(Reachability, A_target_that_drops_echoes_is_reported) {
  Drop(Host::Near, "icmp type echo-request");
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                                            "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, A_name_with_several_addresses_means_the_last_one) {
  Net().SetHostNames(Host::Pc, {{"cnc-2", kFarAddress}, {"cnc-2", kNearAddress}});
  EXPECT_EQ(RunLadder("cnc-2"), (Lines{"cnc-2 -> 192.168.1.100", "PING test...",
                                       "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
}

TEST_F(Reachability, The_all_ones_address_cannot_be_pinged) {
  EXPECT_EQ(RunLadder("255.255.255.255"),
            (Lines{"Bad IP address (Get Host Name) 255.255.255.255", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, An_address_without_a_mask_is_reported) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/0"});
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"Subnet mask is not specified"}));
}

TEST_F(Reachability, A_PC_without_any_address_has_no_mask) {
  Net().SetAddresses(Host::Pc, {});
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"Subnet mask is not specified"}));
}

TEST_F(Reachability, Each_address_of_a_card_is_tried_with_the_cards_gateway) {
  Net().SetAddresses(Host::Pc, {"192.168.1.10/24", "192.168.1.11/24"});
  Net().SetDefaultRoute(Host::Pc, kGatewayAddress);
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(RunLadder(kFarAddress),
            Joined({kOtherSubnet,
                    {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010",
                     "GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010", "Cannot ping to the Gateway",
                     "Please check Gateway's address, cable and power"}}));
}

TEST_F(Reachability, The_PCs_own_unplugged_cable_looks_like_a_dead_target) {
  Net().PullCable(Host::Pc);
  EXPECT_EQ(RunLadder(kNearAddress), (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                                            "Please check Target's address, cable and power"}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_the_gateway) {
  Net().PullCable(Host::Gateway);
  EXPECT_EQ(RunLadder(std::string("-LANGID 0 ") + kFarAddress),
            Joined({{"通信相手は同じﾈｯﾄﾜｰｸ上にありません", "ｹﾞｰﾄｳｪｲの設定を確認します"},
                    Details({"192.168.1.1"}, kFarAddress),
                    {"GateWay (192.168.1.1) PING test ....", "ICMP_Error:11010", "ｹﾞｰﾄｳｪｲにPingできません",
                     "ｹﾞｰﾄｳｪｲのIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください"}}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_the_target) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(RunLadder(std::string("-LANGID 0 ") + kNearAddress),
            (Lines{"PING test...", "ICMP_Error:11010", "通信先にPingできません",
                   "通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください"}));
}

TEST_F(Reachability, The_built_in_Japanese_texts_name_a_missing_mask_and_a_missing_gateway) {
  Net().SetDefaultRoute(Host::Pc, "");
  EXPECT_EQ(RunLadder(std::string("-LANGID 0 ") + kFarAddress).back(),
            "ｹﾞｰﾄｳｪｲが必要ですが設定されていません");
  Net().SetAddresses(Host::Pc, {});
  EXPECT_EQ(RunLadder(std::string("-LANGID 0 ") + kNearAddress),
            (Lines{"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません"}));
}

TEST_F(Reachability, An_unknown_name_has_no_built_in_Japanese_text) {
  EXPECT_EQ(RunLadder("-LANGID 0 cnc-9", kIgnoringBoxes), (Lines{""}));
}

TEST_F(Reachability, The_Japanese_file_has_a_text_for_every_result) {
  const std::string japanese = "-LOCALEID 1041 -LANGID -1 ";
  EXPECT_EQ(RunLadder(japanese + "cnc-9", kIgnoringBoxes),
            (Lines{"指定されたﾎｽﾄ名をIPｱﾄﾞﾚｽに変換できません", ""}));
  Net().SetDefaultRoute(Host::Pc, "192.168.9.1");
  const Lines lines = RunLadder(japanese + kFarAddress);
  EXPECT_EQ(Lines(lines.end() - 2, lines.end()),
            (Lines{"ｻﾌﾞﾈｯﾄﾏｽｸとｹﾞｰﾄｳｪｲの設定が合っていません", "このPCからｹﾞｰﾄｳｪｲにｱｸｾｽできません"}));
}

TEST_F(Reachability, Any_other_language_mode_uses_the_built_in_English_texts) {
  Net().PullCable(Host::Near);
  EXPECT_EQ(RunLadder(std::string("-LOCALEID 1041 -LANGID 1 ") + kNearAddress),
            (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                   "Please check Target's address, cable and power"}));
}

}  // namespace
}  // namespace tarvik::lab
