#include "net/reachability_check.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

struct ReachabilityCheckTest : testing::Test, FakePc {};

constexpr const wchar_t* kSameSubnet = L"192.168.1.100";
constexpr const wchar_t* kOtherSubnet = L"192.168.2.100";

TEST_F(ReachabilityCheckTest, A_target_in_the_PCs_subnet_is_pinged_at_once) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.100");
  EXPECT_TRUE(Check(kSameSubnet, 2));
  EXPECT_EQ(results.Lines(),
            (Lines{L"PING test...", L"0001 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64",
                   L"0002 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64"}));
  EXPECT_EQ(Pinged(), Lines{kSameSubnet});
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ReachabilityCheckTest, One_run_is_one_session_with_the_socket_library) {
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(winsock.startups, 1);
  EXPECT_EQ(winsock.cleanups, 1);
}

TEST_F(ReachabilityCheckTest, An_exception_ends_the_session) {
  view.refusing = true;
  EXPECT_THROW(Check(L"192.168.1.1"), RuntimeError);
  EXPECT_EQ(winsock.startups, winsock.cleanups);
}

TEST_F(ReachabilityCheckTest, An_empty_target_cannot_be_resolved_and_is_not_looked_up) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  winsock.AddHost("", {"192.168.1.10"});
  winsock.AddHost("  ", {"192.168.1.10"});
  icmp.AddHost("192.168.1.10");
  for (const wchar_t* const target : {L"", L"  "}) {
    results.ClearList();
    EXPECT_FALSE(Check(target));
    EXPECT_EQ(results.Lines(), (Lines{L"Cannot resolve specified host name to IP address", L""}));
  }
  EXPECT_TRUE(winsock.lookups.empty());
  EXPECT_TRUE(Pinged().empty());
  EXPECT_EQ(historyCalls, 0);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ReachabilityCheckTest, A_number_with_a_leading_zero_is_octal) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.16");
  EXPECT_TRUE(Check(L"192.168.1.020"));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.16"});
}

TEST_F(ReachabilityCheckTest, An_invalid_octal_number_makes_the_address_unusable) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  EXPECT_FALSE(Check(L"192.168.1.099"));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.1"});
  EXPECT_EQ(results.Lines(),
            (Lines{L"Bad IP address (Get Host Name) 192.168.1.099", L"Cannot ping to the Target",
                   L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityCheckTest, A_resolved_name_is_shown_with_its_address) {
  winsock.AddHost("cnc1", {"192.168.1.100"});
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.100");
  EXPECT_TRUE(Check(L"cnc1"));
  EXPECT_EQ(results.Lines().front(), L"cnc1 -> 192.168.1.100");
  EXPECT_EQ(results.Lines().at(1), L"PING test...");
}

TEST_F(ReachabilityCheckTest, The_last_of_several_addresses_is_the_target) {
  winsock.AddHost("cnc1", {"10.0.0.7", "192.168.1.100"});
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.100");
  EXPECT_TRUE(Check(L"cnc1"));
  EXPECT_EQ(Pinged(), Lines{L"192.168.1.100"});
}

TEST_F(ReachabilityCheckTest, A_dotted_address_gets_no_line_with_an_arrow) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  Check(kSameSubnet);
  EXPECT_EQ(results.Lines().front(), L"PING test...");
  EXPECT_TRUE(winsock.lookups.empty());
}

TEST_F(ReachabilityCheckTest, A_name_that_cannot_be_resolved_ends_the_check) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  EXPECT_FALSE(Check(L"nobody"));
  EXPECT_EQ(results.Lines(), (Lines{L"Cannot resolve specified host name to IP address", L""}));
  EXPECT_EQ(boxes.Texts(), Lines{L"gethostbyname(nobody)=11001"});
  EXPECT_EQ(historyCalls, 0);
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(ReachabilityCheckTest, A_target_with_an_address_enters_the_history_even_if_the_check_fails) {
  winsock.ioctlSucceeds = false;
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(historyCalls, 1);
}

TEST_F(ReachabilityCheckTest, An_unreadable_configuration_ends_the_check) {
  winsock.ioctlSucceeds = false;
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), Lines{L"Informational acquisition Failure"});
}

TEST_F(ReachabilityCheckTest, On_an_unsupported_system_the_configuration_is_unreadable) {
  system.majorVersion = 3;
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), Lines{L"Informational acquisition Failure"});
}

TEST_F(ReachabilityCheckTest, A_PC_without_addresses_has_no_mask) {
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), Lines{L"Subnet mask is not specified"});
}

TEST_F(ReachabilityCheckTest, A_mask_of_0_0_0_0_counts_as_missing) {
  AddCard("192.168.1.10", "0.0.0.0", {"192.168.1.1"});
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), Lines{L"Subnet mask is not specified"});
  EXPECT_TRUE(icmp.requests.empty());
}

// Only Windows NT 4.0's ipconfig reports an empty mask.
struct OldSystemTest : ReachabilityCheckTest {
  OldSystemTest() { system.majorVersion = 4; }
  void Print(const std::string& text) {
    processes.onStart = [this, text] { files.contents[L"C:\\Tarvik\\ipconfig.txt"] = text; };
  }
};

TEST_F(OldSystemTest, On_Windows_NT_4_the_configuration_is_read_from_ipconfig) {
  Print("IP Address: 192.168.1.10\r\nSubnet Mask: 255.255.255.0\r\nDefault Gateway: 192.168.1.1\r\n");
  icmp.AddHost("192.168.1.1");
  icmp.AddHost("192.168.2.100");
  EXPECT_TRUE(Check(kOtherSubnet));
  EXPECT_EQ(Pinged(), (Lines{L"192.168.1.1", L"192.168.2.100"}));
}

TEST_F(OldSystemTest, An_empty_mask_counts_as_missing) {
  Print("IP Address: 192.168.1.10\r\nSubnet Mask: \r\nDefault Gateway: 192.168.1.1\r\n");
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), Lines{L"Subnet mask is not specified"});
}

TEST_F(OldSystemTest, A_stop_while_ipconfig_runs_ends_the_check_without_a_verdict) {
  processes.runningPolls = 11;
  pump.stopAt = 700;
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_TRUE(results.Lines().empty());
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(winsock.cleanups, 1);
}

TEST_F(OldSystemTest, A_process_that_does_not_finish_ends_the_check_with_a_box_and_a_line) {
  processes.runningPolls = 11;
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(results.Lines(), Lines{L"Informational acquisition Failure"});
}

TEST_F(ReachabilityCheckTest, The_subnet_of_the_second_address_counts_too) {
  AddCard("10.1.2.3", "255.0.0.0", {});
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.100");
  EXPECT_TRUE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines().front(), L"PING test...");
}

TEST_F(ReachabilityCheckTest, The_subnet_of_the_first_address_counts_when_there_is_a_second) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  AddCard("10.1.2.3", "255.0.0.0", {});
  icmp.AddHost("192.168.1.100");
  EXPECT_TRUE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines().front(), L"PING test...");
}

TEST_F(ReachabilityCheckTest, Only_addresses_with_a_mask_are_compared) {
  AddCard("10.1.2.3", "0.0.0.0", {});
  AddCard("192.168.1.10", "255.255.255.0", {});
  EXPECT_FALSE(Check(kOtherSubnet));
  EXPECT_EQ(results.Lines().front(), L"Target is not exist on the same network");
}

TEST_F(ReachabilityCheckTest, The_mask_sets_the_limits_of_the_subnet) {
  AddCard("192.168.1.10", "255.255.254.0", {});
  icmp.AddHost("192.168.0.7");
  EXPECT_TRUE(Check(L"192.168.0.7"));
  results.ClearList();
  EXPECT_FALSE(Check(kOtherSubnet));
  EXPECT_EQ(results.Lines().front(), L"Target is not exist on the same network");
}

TEST_F(ReachabilityCheckTest, A_target_in_the_PCs_subnet_that_does_not_answer_fails) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_EQ(results.Lines(), (Lines{L"PING test...", L"ICMP_Error:11010", L"Cannot ping to the Target",
                                    L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityCheckTest, A_count_of_zero_finds_the_target_unreachable_without_a_ping) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.100");
  EXPECT_FALSE(Check(kSameSubnet, 0));
  EXPECT_EQ(results.Lines(), (Lines{L"PING test...", L"Cannot ping to the Target",
                                    L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityCheckTest, A_stop_during_the_targets_ping_without_an_answer_fails) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  pump.stopAt = 300;
  EXPECT_FALSE(Check(kSameSubnet, 4));
  EXPECT_EQ(results.Lines(), (Lines{L"PING test...", L"ICMP_Error:11010", L"Cannot ping to the Target",
                                    L"Please check Target's address, cable and power"}));
}

TEST_F(ReachabilityCheckTest, A_stop_during_the_targets_ping_after_an_answer_passes) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.100");
  pump.stopAt = 300;
  EXPECT_TRUE(Check(kSameSubnet, 4));
  EXPECT_EQ(icmp.requests.size(), 1u);
}

TEST_F(ReachabilityCheckTest, A_stop_while_a_box_was_open_starts_no_ping) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.100");
  winsock.data.iMaxSockets = 0;
  boxes.onShow = [this] { pump.stop = true; };
  EXPECT_FALSE(Check(kSameSubnet));
  EXPECT_TRUE(results.Lines().empty());
  EXPECT_FALSE(Check(kOtherSubnet));
  EXPECT_EQ(results.Lines().back(), L"  Target     :192.168.2.100");
  EXPECT_TRUE(icmp.requests.empty());
}

}  // namespace
}  // namespace tarvik::test
