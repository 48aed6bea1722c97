#include "net/way_to_target.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_ip_helper.h"

namespace tarvik::test {
namespace {

using report::CardKind;

struct WayToTargetTest : testing::Test {
  /// Cable with a static address, and Wi-Fi to the office network, which has the gateway.
  WayToTargetTest() {
    ipHelper.cards = {{u"Ethernet 2", 7, {{"192.168.1.10"}}, {}},
                      {u"Wi-Fi", 12, {{"10.20.3.4", 16}}, {"10.20.0.1"}, IpAdapterAddresses::kWirelessLan}};
    ipHelper.bestInterface = 7;
  }

  report::WayToTarget Find(const std::string& target = "192.168.1.100") {
    return FindWayToTarget(ipHelper, AddressNumber(target));
  }
  FakeCard& Cable() { return ipHelper.cards[0]; }
  FakeCard& Wireless() { return ipHelper.cards[1]; }

  FakeIpHelper ipHelper;
};

TEST_F(WayToTargetTest, The_card_is_the_one_that_Windows_sends_through) {
  Cable().description = u"Family Controller";
  const auto way = Find();
  ASSERT_TRUE(way.card);
  EXPECT_EQ(way.card->name, L"Ethernet 2");
  EXPECT_EQ(way.card->description, L"Family Controller");
  EXPECT_EQ(way.card->address, L"192.168.1.10");
  EXPECT_EQ(way.card->mask, L"255.255.255.0");
  EXPECT_TRUE(way.card->gateways.empty());
  EXPECT_EQ(way.card->kind, CardKind::Cable);
  EXPECT_EQ(way.card->index, 7u);
  EXPECT_TRUE(way.card->up);
  EXPECT_FALSE(way.severalCardsFit);
  EXPECT_EQ(ipHelper.bestAsked, std::vector<uint32_t>{AddressNumber("192.168.1.100")});
}

TEST_F(WayToTargetTest, A_target_beyond_the_gateway_is_reached_through_the_card_with_the_gateway) {
  ipHelper.bestInterface = 12;
  const auto way = Find("172.16.0.1");
  ASSERT_TRUE(way.card);
  EXPECT_EQ(way.card->name, L"Wi-Fi");
  EXPECT_EQ(way.card->kind, CardKind::Wireless);
  EXPECT_EQ(way.card->mask, L"255.255.0.0");
  EXPECT_EQ(way.card->gateways, std::vector<std::wstring>{L"10.20.0.1"});
  EXPECT_FALSE(way.severalCardsFit);
}

TEST_F(WayToTargetTest, The_snapshot_has_every_card_but_the_loopback) {
  ipHelper.cards.insert(ipHelper.cards.begin(),
                        {u"Loopback", 1, {{"127.0.0.1", 8}}, {}, IpAdapterAddresses::kLoopback});
  const auto way = Find();
  ASSERT_EQ(way.cards.size(), 2u);
  EXPECT_EQ(way.cards[0].name, L"Ethernet 2");
  EXPECT_EQ(way.cards[1].name, L"Wi-Fi");
}

TEST_F(WayToTargetTest, A_cable_that_is_out_is_the_way_while_Windows_still_sends_there) {
  Cable().status = IpAdapterAddresses::kStatusDown;
  const auto way = Find();
  ASSERT_TRUE(way.card);
  EXPECT_EQ(way.card->name, L"Ethernet 2");
  EXPECT_FALSE(way.card->up);
}

TEST_F(WayToTargetTest, A_cable_that_is_out_is_the_way_even_if_Windows_sends_elsewhere_or_nowhere) {
  Cable().status = IpAdapterAddresses::kStatusDown;
  for (const std::optional<uint32_t> best : {std::optional<uint32_t>(12), std::optional<uint32_t>()}) {
    ipHelper.bestInterface = best;
    const auto way = Find();
    ASSERT_TRUE(way.card);
    EXPECT_EQ(way.card->name, L"Ethernet 2");
    EXPECT_FALSE(way.card->up);
    EXPECT_FALSE(way.severalCardsFit);
  }
}

TEST_F(WayToTargetTest, A_cable_that_is_out_does_not_matter_while_another_card_is_on_the_subnet) {
  Cable().status = IpAdapterAddresses::kStatusDown;
  Wireless().addresses = {{"192.168.1.11"}};
  ipHelper.bestInterface = 12;
  const auto way = Find();
  ASSERT_TRUE(way.card);
  EXPECT_EQ(way.card->name, L"Wi-Fi");
  EXPECT_FALSE(way.severalCardsFit);
}

TEST_F(WayToTargetTest, A_card_that_lost_its_address_with_its_cable_is_only_in_the_snapshot) {
  Cable().status = IpAdapterAddresses::kStatusDown;
  Cable().addresses.clear();
  ipHelper.bestInterface.reset();
  const auto way = Find();
  EXPECT_FALSE(way.card);
  ASSERT_EQ(way.cards.size(), 2u);
  EXPECT_EQ(way.cards[0].address, L"");
  EXPECT_EQ(way.cards[0].mask, L"");
  EXPECT_FALSE(way.cards[0].up);
}

TEST_F(WayToTargetTest, Two_cards_on_the_targets_subnet_both_fit) {
  Wireless().addresses = {{"192.168.1.11"}};
  EXPECT_TRUE(Find().severalCardsFit);
}

TEST_F(WayToTargetTest, Two_addresses_of_one_card_are_not_two_cards) {
  Cable().addresses = {{"192.168.1.10"}, {"192.168.1.11"}};
  EXPECT_FALSE(Find().severalCardsFit);
}

TEST_F(WayToTargetTest, A_card_names_its_address_on_the_targets_subnet) {
  Cable().addresses = {{"10.1.1.1", 8}, {"192.168.1.10"}};
  EXPECT_EQ(Find().card->address, L"192.168.1.10");
  EXPECT_EQ(Find().cards[0].mask, L"255.255.255.0");
  EXPECT_EQ(Find("172.16.0.1").card->address, L"10.1.1.1");
}

TEST_F(WayToTargetTest, An_address_that_Windows_gave_itself_fits_no_target_elsewhere) {
  Cable().addresses = {{"169.254.7.8", 16}};
  const auto way = Find();
  ASSERT_TRUE(way.card);
  EXPECT_EQ(way.card->address, L"169.254.7.8");
  EXPECT_EQ(way.card->mask, L"255.255.0.0");
  EXPECT_FALSE(way.severalCardsFit);
}

TEST_F(WayToTargetTest, The_kind_is_what_Windows_says) {
  const std::pair<uint32_t, CardKind> kinds[] = {{6, CardKind::Cable},     {71, CardKind::Wireless},
                                                 {23, CardKind::Virtual},  {53, CardKind::Virtual},
                                                 {131, CardKind::Virtual}, {243, CardKind::Other}};
  for (const auto& [type, kind] : kinds) {
    Cable().type = type;
    EXPECT_EQ(Find().card->kind, kind) << type;
  }
}

TEST_F(WayToTargetTest, Only_a_link_that_Windows_reports_as_down_is_down) {
  for (uint32_t status = 1; status <= 7; ++status) {
    Cable().status = status;
    EXPECT_EQ(Find().card->up, status != 2 && status != 6 && status != 7) << status;
  }
}

TEST_F(WayToTargetTest, A_card_that_is_not_in_the_snapshot_is_not_the_way) {
  ipHelper.bestInterface = 1;  // what Windows answers for an address of this PC
  EXPECT_FALSE(Find("192.168.1.10").card);
}

TEST_F(WayToTargetTest, Whatever_Windows_does_not_answer_stays_empty) {
  ipHelper.bestInterface.reset();
  EXPECT_FALSE(Find().card);
  EXPECT_EQ(Find().cards.size(), 2u);
  for (const uint32_t error : {50u, 8u, 87u, 232u}) {
    ipHelper.cardsResult = error;
    ipHelper.bestInterface = 7;
    EXPECT_FALSE(Find().card);
    EXPECT_TRUE(Find().cards.empty());
  }
}

}  // namespace
}  // namespace tarvik::test
