#include "net/neighbour.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_ip_helper.h"

namespace tarvik::test {
namespace {

using report::Neighbour;

struct NeighbourTest : testing::Test {
  NeighbourTest() { ipHelper.AddNeighbour("192.168.1.1", MibIpNetRow2::kReachable); }
  ~NeighbourTest() override { EXPECT_TRUE(ipHelper.neighbourTables.empty()) << "the table was not freed"; }

  Neighbour Look(const std::string& target = "192.168.1.100") {
    return LookForNeighbour(ipHelper, AddressNumber(target));
  }
  FakeIpHelper ipHelper;
};

TEST_F(NeighbourTest, A_device_that_answered_is_present) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  EXPECT_EQ(Look(), Neighbour::Present);
}

TEST_F(NeighbourTest, A_device_that_does_not_answer_is_absent) {
  for (const uint32_t state : {MibIpNetRow2::kUnreachable, MibIpNetRow2::kIncomplete, MibIpNetRow2::kStale}) {
    ipHelper.neighbours.clear();
    ipHelper.AddNeighbour("192.168.1.100", state, false);
    EXPECT_EQ(Look(), Neighbour::Absent) << state;
    ipHelper.neighbours[0].PhysicalAddressLength = 0;
    EXPECT_EQ(Look(), Neighbour::Absent) << state;
  }
}

TEST_F(NeighbourTest, A_device_that_has_stopped_answering_is_absent) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kUnreachable);
  EXPECT_EQ(Look(), Neighbour::Absent);
}

TEST_F(NeighbourTest, An_answer_from_before_proves_nothing) {
  for (const uint32_t state : {MibIpNetRow2::kStale, MibIpNetRow2::kDelay, MibIpNetRow2::kProbe}) {
    ipHelper.neighbours.clear();
    ipHelper.AddNeighbour("192.168.1.100", state);
    EXPECT_EQ(Look(), Neighbour::Unknown) << state;
  }
}

TEST_F(NeighbourTest, An_entry_made_by_a_user_proves_nothing) {
  for (const bool physicalAddressKnown : {true, false}) {
    ipHelper.neighbours.clear();
    ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kPermanent, physicalAddressKnown);
    EXPECT_EQ(Look(), Neighbour::Unknown);
  }
}

TEST_F(NeighbourTest, An_address_that_Windows_did_not_ask_for_is_unknown) {
  EXPECT_EQ(Look("10.0.0.5"), Neighbour::Unknown);
  ipHelper.neighbours.clear();
  EXPECT_EQ(Look(), Neighbour::Unknown);
}

TEST_F(NeighbourTest, With_two_cards_on_the_subnet_one_answer_is_enough) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kUnreachable, false);
  EXPECT_EQ(Look(), Neighbour::Absent);
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kStale);
  EXPECT_EQ(Look(), Neighbour::Unknown);
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  EXPECT_EQ(Look(), Neighbour::Present);
}

TEST_F(NeighbourTest, Only_a_device_that_was_not_present_before_has_answered_since) {
  EXPECT_EQ(Between(Neighbour::Absent, Neighbour::Present), Neighbour::Present);
  EXPECT_EQ(Between(Neighbour::Unknown, Neighbour::Present), Neighbour::Present);
  EXPECT_EQ(Between(Neighbour::Present, Neighbour::Present), Neighbour::Unknown);
  EXPECT_EQ(Between(Neighbour::Present, Neighbour::Absent), Neighbour::Absent);
}

TEST_F(NeighbourTest, A_row_of_another_address_family_does_not_count) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  ipHelper.neighbours.back().Family = 23;
  EXPECT_EQ(Look(), Neighbour::Unknown);
}

TEST_F(NeighbourTest, A_physical_address_that_claims_to_be_too_long_is_read_as_far_as_it_goes) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable, false);
  ipHelper.neighbours.back().PhysicalAddressLength = 0xFFFFFFFF;
  EXPECT_EQ(Look(), Neighbour::Absent);
}

TEST_F(NeighbourTest, A_table_that_cannot_be_read_is_unknown) {
  ipHelper.AddNeighbour("192.168.1.100", MibIpNetRow2::kReachable);
  ipHelper.neighboursResult = 50;
  EXPECT_EQ(Look(), Neighbour::Unknown);
}

}  // namespace
}  // namespace tarvik::test
