// What the Ping check asks Windows besides its echoes. Nothing of it adds a line.

#include <gtest/gtest.h>

#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using report::Neighbour;

struct SecondLookTest : testing::Test, FakePc {
  SecondLookTest() {
    AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
    ipHelper.cards = {{u"Ethernet", 7, {{"192.168.1.10"}}, {"192.168.1.1"}}};
    ipHelper.bestInterface = 7;
  }

  const report::Facts& Facts() const { return recorder.run.facts; }
};

TEST_F(SecondLookTest, The_card_is_known_before_the_first_echo) {
  icmp.AddHost("192.168.1.100");
  bool known = false;
  icmp.onSend = [&] { known = Facts().pc.way.card.has_value(); };
  EXPECT_TRUE(Check(L"192.168.1.100", 3));
  EXPECT_TRUE(known);
  EXPECT_EQ(Facts().pc.way.card->name, L"Ethernet");
  EXPECT_EQ(ipHelper.bestAsked.size(), 1u);
}

TEST_F(SecondLookTest, The_card_is_known_even_if_no_card_has_a_mask) {
  winsock.interfaceBytes.clear();
  ipHelper.cards[0].addresses.clear();
  ipHelper.cards[0].status = IpAdapterAddresses::kStatusDown;
  EXPECT_FALSE(Check(L"192.168.1.100"));
  ASSERT_EQ(Facts().pc.way.cards.size(), 1u);
  EXPECT_FALSE(Facts().pc.way.cards[0].up);
}

TEST_F(SecondLookTest, A_target_that_answers_is_not_looked_for) {
  icmp.AddHost("192.168.1.100");
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  EXPECT_TRUE(Check(L"192.168.1.100"));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, A_target_that_does_not_answer_is_looked_for) {
  ipHelper.AddNeighbour("192.168.1.101", MibIpNetRow2::kUnreachable, false);
  icmp.onSend = [&] {
    if (ipHelper.neighbours.size() == 1) ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  };
  EXPECT_FALSE(Check(L"192.168.1.100"));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Present);
  EXPECT_FALSE(Check(L"192.168.1.101"));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Absent);
}

TEST_F(SecondLookTest, An_answer_from_before_the_first_echo_proves_nothing) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  ipHelper.AddNeighbour("192.168.1.1", MibIpNetRow2::kReachable);
  EXPECT_FALSE(Check(L"192.168.1.100"));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
  EXPECT_FALSE(Check(L"10.0.0.5"));
  EXPECT_EQ(Facts().gateway.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, A_gateway_that_does_not_answer_is_looked_for) {
  ipHelper.AddNeighbour("192.168.1.1", MibIpNetRow2::kIncomplete, false);
  EXPECT_FALSE(Check(L"10.0.0.5"));
  EXPECT_EQ(Facts().gateway.neighbour, Neighbour::Absent);
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, A_target_beyond_the_gateway_has_no_entry) {
  icmp.AddHost("192.168.1.1");
  ipHelper.AddNeighbour("192.168.1.1", MibIpNetRow2::kReachable);
  EXPECT_FALSE(Check(L"10.0.0.5"));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, A_stop_before_the_next_gateway_leaves_the_gateway_unproven) {
  ipHelper.adapters.clear();
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1", "192.168.1.2"});
  icmp.onSend = [this] { pump.stop = true; };
  EXPECT_FALSE(Check(L"10.0.0.5"));
  EXPECT_EQ(Facts().gateway.progress, report::Progress::Stopped);
}

TEST_F(SecondLookTest, After_a_stop_nothing_is_looked_for) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  pump.stopAt = 300;
  EXPECT_FALSE(Check(L"192.168.1.100", 5));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, Without_an_echo_nothing_is_looked_for) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  EXPECT_FALSE(Check(L"192.168.1.100", 0));
  EXPECT_EQ(Facts().target.neighbour, Neighbour::Unknown);
}

TEST_F(SecondLookTest, The_lines_are_the_same_whatever_Windows_answers) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  EXPECT_FALSE(Check(L"192.168.1.100"));
  const auto lines = results.Lines();
  results.ClearList();
  ipHelper.cardsResult = ipHelper.neighboursResult = 50;
  ipHelper.bestInterface.reset();
  EXPECT_FALSE(Check(L"192.168.1.100"));
  EXPECT_EQ(results.Lines(), lines);
  EXPECT_TRUE(boxes.boxes.empty());
}

}  // namespace
}  // namespace tarvik::test
