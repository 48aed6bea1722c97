#include "net/adapter_list.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_ip_helper.h"

namespace tarvik::test {
namespace {

// Buffers are exactly as long as their chain, so AddressSanitizer reports a read of one byte beyond.
struct AdapterListTest : testing::Test {
  std::vector<FakeCard> cards{{u"Ethernet", 3, {{"192.168.1.10"}, {"10.0.0.5", 8}}, {"192.168.1.1"}},
                              {u"\u30A4\u30FC\u30B5\u30CD\u30C3\u30C8", 4, {{"10.1.2.3", 12}}, {}}};
  FakeIpHelper ipHelper;

  static std::vector<std::byte> Lay(const std::vector<FakeCard>& cards,
                                    uint32_t recordBytes = CardChain::kRecordBytes) {
    CardChain chain(cards, recordBytes);
    std::vector<std::byte> buffer(chain.Size());
    chain.Write(buffer.data());
    return buffer;
  }
  /// Replaces a member of the record at the start of the buffer.
  template <typename Value>
  static void Set(std::vector<std::byte>& buffer, size_t offset, Value value) {
    std::memcpy(buffer.data() + offset, &value, sizeof value);
  }
};

TEST_F(AdapterListTest, Cards_have_all_of_their_addresses_and_name_the_first) {
  const auto adapters = ParseAdapters(Lay(cards));
  ASSERT_EQ(adapters.size(), 2u);
  ASSERT_EQ(adapters[0].addresses.size(), 2u);
  EXPECT_EQ(adapters[0].addresses[1].address, AddressNumber("10.0.0.5"));
  EXPECT_EQ(adapters[0].addresses[1].mask, AddressNumber("255.0.0.0"));
  EXPECT_EQ(adapters[0].card.address, L"192.168.1.10");
  EXPECT_EQ(adapters[0].card.gateways, std::vector<std::wstring>{L"192.168.1.1"});
  EXPECT_EQ(adapters[1].card.name, L"\u30A4\u30FC\u30B5\u30CD\u30C3\u30C8");
  EXPECT_EQ(adapters[1].card.mask, L"255.240.0.0");
}

TEST_F(AdapterListTest, A_mask_has_as_many_ones_as_the_prefix_is_long) {
  const std::pair<int, const wchar_t*> masks[] = {{0, L""},
                                                  {1, L"128.0.0.0"},
                                                  {23, L"255.255.254.0"},
                                                  {31, L"255.255.255.254"},
                                                  {32, L"255.255.255.255"},
                                                  {33, L""},
                                                  {255, L""}};
  for (const auto& [length, mask] : masks) {
    cards[0].addresses[0].prefixLength = static_cast<uint8_t>(length);
    EXPECT_EQ(ParseAdapters(Lay(cards))[0].card.mask, mask) << length;
  }
}

TEST_F(AdapterListTest, Records_of_Windows_XP_have_no_gateways) {
  const auto adapters = ParseAdapters(Lay(cards, CardChain::kXpRecordBytes));
  ASSERT_EQ(adapters.size(), 2u);
  EXPECT_EQ(adapters[0].card.address, L"192.168.1.10");
  EXPECT_TRUE(adapters[0].card.gateways.empty());
}

TEST_F(AdapterListTest, Addresses_that_are_not_IPv4_are_skipped) {
  auto buffer = Lay(cards);
  IpAdapterAddresses record;
  std::memcpy(&record, buffer.data(), sizeof record);
  IpAdapterUnicastAddress unicast;
  std::memcpy(&unicast, record.FirstUnicastAddress, sizeof unicast);
  const uint16_t ipv6 = 23;
  std::memcpy(const_cast<void*>(unicast.Address.lpSockaddr), &ipv6, sizeof ipv6);
  const auto adapters = ParseAdapters(buffer);
  ASSERT_EQ(adapters[0].addresses.size(), 1u);
  EXPECT_EQ(adapters[0].card.address, L"10.0.0.5");
}

TEST_F(AdapterListTest, A_card_without_texts_and_addresses_stays_in_the_list) {
  auto buffer = Lay({{u"", 9, {}, {}}});
  Set<const void*>(buffer, offsetof(IpAdapterAddresses, FriendlyName), nullptr);
  Set<const void*>(buffer, offsetof(IpAdapterAddresses, Description), nullptr);
  const auto adapters = ParseAdapters(buffer);
  ASSERT_EQ(adapters.size(), 1u);
  EXPECT_EQ(adapters[0].card.name, L"");
  EXPECT_EQ(adapters[0].card.address, L"");
  EXPECT_EQ(adapters[0].card.index, 9u);
}

TEST_F(AdapterListTest, A_chain_in_a_circle_ends) {
  auto buffer = Lay(cards);
  Set<const void*>(buffer, offsetof(IpAdapterAddresses, Next), buffer.data());
  IpAdapterAddresses record;
  std::memcpy(&record, buffer.data(), sizeof record);
  auto* const link = const_cast<IpAdapterUnicastAddress*>(record.FirstUnicastAddress);
  link->Next = link;
  const auto adapters = ParseAdapters(buffer);
  EXPECT_EQ(adapters.size(), 64u);
  EXPECT_EQ(adapters[0].addresses.size(), 64u);
}

TEST_F(AdapterListTest, Pointers_out_of_the_buffer_are_not_followed) {
  for (const size_t member :
       {offsetof(IpAdapterAddresses, Next), offsetof(IpAdapterAddresses, FirstUnicastAddress),
        offsetof(IpAdapterAddresses, FirstGatewayAddress), offsetof(IpAdapterAddresses, FriendlyName),
        offsetof(IpAdapterAddresses, Description)}) {
    for (const int place : {-1, 0, 1, 7}) {
      auto buffer = Lay(cards);
      const auto end = reinterpret_cast<std::intptr_t>(buffer.data() + buffer.size());
      Set(buffer, member, place < 0 ? std::intptr_t{8} : end - place);
      EXPECT_FALSE(ParseAdapters(buffer).empty());
    }
  }
}

TEST_F(AdapterListTest, A_truncated_list_is_read_as_far_as_it_goes) {
  const auto whole = Lay(cards);
  for (size_t size = 0; size < whole.size(); ++size) {
    // The pointers lead into the whole list, of which this copy has only the first bytes.
    std::vector<std::byte> buffer(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const auto shift =
        reinterpret_cast<std::intptr_t>(buffer.data()) - reinterpret_cast<std::intptr_t>(whole.data());
    if (size >= CardChain::kRecordBytes)
      for (const size_t member :
           {offsetof(IpAdapterAddresses, Next), offsetof(IpAdapterAddresses, FirstUnicastAddress),
            offsetof(IpAdapterAddresses, FriendlyName), offsetof(IpAdapterAddresses, Description)}) {
        std::intptr_t pointer = 0;
        std::memcpy(&pointer, buffer.data() + member, sizeof pointer);
        Set(buffer, member, pointer + shift);
      }
    EXPECT_LE(ParseAdapters(buffer).size(), 2u);
  }
}

TEST_F(AdapterListTest, A_record_with_an_impossible_length_ends_the_list) {
  for (const uint32_t length : {0u, 8u, CardChain::kXpRecordBytes - 8}) {
    auto buffer = Lay(cards);
    Set(buffer, 0, length);
    EXPECT_TRUE(ParseAdapters(buffer).empty()) << length;
  }
  auto buffer = Lay(cards);
  Set(buffer, 0, 0xFFFFFFFFu);
  EXPECT_EQ(ParseAdapters(buffer).size(), 2u);
}

TEST_F(AdapterListTest, A_longer_list_is_asked_for_again_at_most_twice) {
  ipHelper.cards.assign(60, cards[0]);
  EXPECT_EQ(ReadAdapters(ipHelper).size(), 60u);
  EXPECT_EQ(ipHelper.cardCalls, 2);
  ipHelper.cardGrowths = 2;
  ipHelper.cardCalls = 0;
  EXPECT_EQ(ReadAdapters(ipHelper).size(), 60u);
  EXPECT_EQ(ipHelper.cardCalls, 3);
  ipHelper.cardGrowths = 1000;
  ipHelper.cardCalls = 0;
  EXPECT_TRUE(ReadAdapters(ipHelper).empty());
  EXPECT_EQ(ipHelper.cardCalls, 3);
}

TEST_F(AdapterListTest, A_size_that_is_not_credible_ends_the_attempt) {
  ipHelper.cards = cards;
  ipHelper.cardGrowths = 1;
  ipHelper.announcedCardSize = 0xFFFFFFFF;
  EXPECT_TRUE(ReadAdapters(ipHelper).empty());
  EXPECT_EQ(ipHelper.cardCalls, 1);
}

TEST_F(AdapterListTest, A_library_that_writes_nothing_reports_no_cards) {
  EXPECT_TRUE(ParseAdapters(std::vector<std::byte>(16384)).empty());
  EXPECT_TRUE(ParseAdapters({}).empty());
}

}  // namespace
}  // namespace tarvik::test
