// What the Ping check reports to the recorder besides its lines.

#include <gtest/gtest.h>

#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

struct ReachabilityFactsTest : testing::Test, FakePc {
  const report::Facts& facts = recorder.run.facts;
};

TEST_F(ReachabilityFactsTest, A_name_and_what_it_was_resolved_to) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  winsock.AddHost("cnc-1", {"192.168.1.100"});
  Check(L"cnc-1");
  EXPECT_EQ(facts.name.typed, L"cnc-1");
  EXPECT_FALSE(facts.name.isAddress);
  EXPECT_EQ(facts.name.address, L"192.168.1.100");
  EXPECT_EQ(facts.name.progress, report::Progress::Ended);
}

TEST_F(ReachabilityFactsTest, An_unknown_name_has_no_address_and_ends_the_check) {
  Check(L"cnc-9");
  EXPECT_EQ(facts.name.address, L"");
  EXPECT_EQ(facts.pc.progress, report::Progress::NotStarted);
}

TEST_F(ReachabilityFactsTest, The_PCs_own_addresses_and_whether_the_target_is_on_their_subnet) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  Check(L"192.168.1.100");
  ASSERT_EQ(facts.pc.addresses.size(), 1u);
  EXPECT_EQ(facts.pc.addresses[0].address, L"192.168.1.10");
  EXPECT_EQ(facts.pc.addresses[0].mask, L"255.255.255.0");
  EXPECT_EQ(facts.pc.addresses[0].gateways, std::vector<std::wstring>{L"192.168.1.1"});
  EXPECT_TRUE(facts.pc.sameSubnet);
  EXPECT_EQ(facts.gateway.result, report::GatewayResult::NotNeeded);
}

TEST_F(ReachabilityFactsTest, No_mask) {
  AddCard("192.168.1.10", "0.0.0.0", {});
  Check(L"192.168.1.100");
  EXPECT_FALSE(facts.pc.hasMask);
  EXPECT_EQ(facts.gateway.progress, report::Progress::NotStarted);
}

TEST_F(ReachabilityFactsTest, Why_there_is_no_usable_gateway) {
  AddCard("192.168.1.10", "255.255.255.0", {"0.0.0.0"});
  Check(L"192.168.2.100");
  EXPECT_EQ(facts.gateway.result, report::GatewayResult::NoneConfigured);
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.9.1"});
  Check(L"192.168.2.100");
  EXPECT_EQ(facts.gateway.result, report::GatewayResult::NoneUsable);
}

TEST_F(ReachabilityFactsTest, Each_gateway_that_was_pinged) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1", "192.168.1.2"});
  icmp.AddHost("192.168.1.2");
  icmp.AddHost("192.168.2.100");
  Check(L"192.168.2.100", 2);
  ASSERT_EQ(facts.gateway.tried.size(), 2u);
  EXPECT_EQ(facts.gateway.tried[0].address, L"192.168.1.1");
  EXPECT_EQ(facts.gateway.tried[0].error, 11010u);
  EXPECT_EQ(facts.gateway.tried[1].answered, 2);
  EXPECT_EQ(facts.gateway.result, report::GatewayResult::Answered);
}

TEST_F(ReachabilityFactsTest, What_happened_to_each_echo) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.script = {FakeIcmp::Reply("192.168.1.100", 0, 17), FakeIcmp::Reply("192.168.1.16"),
                 FakeIcmp::Reply("192.168.1.1", 11003), FakeIcmp::TimedOut(1231)};
  Check(L"192.168.1.100", 4);
  const report::EchoSeries& echoes = facts.target.echoes;
  EXPECT_EQ(echoes.asked, 4);
  EXPECT_EQ(echoes.sent, 4);
  EXPECT_EQ(echoes.answered, 1);
  EXPECT_EQ(echoes.elsewhere, 1);
  EXPECT_EQ(echoes.refused, 1);
  EXPECT_EQ(echoes.slowestMs, 17u);
  ASSERT_EQ(echoes.echoes.size(), 4u);
  EXPECT_EQ(echoes.echoes[1].from, L"192.168.1.16");
  EXPECT_EQ(echoes.echoes[2].status, 11003u);
  EXPECT_EQ(echoes.echoes[2].from, L"192.168.1.1");
  EXPECT_EQ(echoes.echoes[3].error, 1231u);
  EXPECT_EQ(facts.target.progress, report::Progress::Ended);
}

TEST_F(ReachabilityFactsTest, A_stop_before_the_first_answer_is_no_verdict) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  pump.stopAt = 500;
  Check(L"192.168.1.100", 4);
  EXPECT_EQ(facts.target.echoes.sent, 1);
  EXPECT_EQ(facts.target.progress, report::Progress::Stopped);
}

TEST_F(ReachabilityFactsTest, A_stop_after_an_answer_keeps_the_verdict) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  icmp.AddHost("192.168.1.100");
  pump.stopAt = 500;
  Check(L"192.168.1.100", 4);
  EXPECT_EQ(facts.target.progress, report::Progress::Ended);
}

TEST_F(ReachabilityFactsTest, An_address_that_Windows_cannot_read) {
  AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
  icmp.AddHost("192.168.1.1");
  Check(L"192.168.1.099");
  EXPECT_TRUE(facts.target.echoes.addressRejected);
}

TEST_F(ReachabilityFactsTest, The_facts_change_before_each_echo_so_that_its_number_is_shown) {
  AddCard("192.168.1.10", "255.255.255.0", {});
  std::vector<int32_t> sent;
  recorder.onChanged = [&] {
    if (facts.target.progress == report::Progress::Running && facts.target.echoes.asked > 0)
      sent.push_back(facts.target.echoes.sent);
  };
  Check(L"192.168.1.100", 3);
  EXPECT_EQ(sent, (std::vector<int32_t>{0, 1, 2}));
}

}  // namespace
}  // namespace tarvik::test
