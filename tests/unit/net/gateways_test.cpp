#include "net/gateways.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_ip_helper.h"

namespace tarvik::test {
namespace {

using Addresses = std::vector<std::wstring>;

// The chain's buffers are exactly as long as the chain: one byte read beyond stops the test.
struct GatewaysTest : testing::Test {
  std::vector<LocalAddressRecord> list{{L"192.168.1.10", L"255.255.255.0", {}},
                                       {L"10.1.2.3", L"255.0.0.0", {}}};
  FakeIpHelper ipHelper;

  static std::vector<std::byte> Lay(const std::vector<AdapterChain::Adapter>& adapters) {
    std::vector<std::byte> buffer(AdapterChain::SizeOf(adapters));
    AdapterChain::Write(adapters, buffer.data());
    return buffer;
  }
  static IpAdapterInfo ReadAdapter(const std::vector<std::byte>& buffer, size_t offset) {
    IpAdapterInfo info;
    std::memcpy(&info, buffer.data() + offset, sizeof info);
    return info;
  }
  static void WriteAdapter(std::vector<std::byte>& buffer, size_t offset, const IpAdapterInfo& info) {
    std::memcpy(buffer.data() + offset, &info, sizeof info);
  }
};

TEST_F(GatewaysTest, Each_record_gets_the_gateways_of_its_own_adapter_in_their_order) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1", "192.168.1.2"});
  ipHelper.AddAdapter({"10.1.2.3"}, {"10.0.0.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, (Addresses{L"192.168.1.1", L"192.168.1.2"}));
  EXPECT_EQ(list[1].Gateways, Addresses{L"10.0.0.1"});
}

TEST_F(GatewaysTest, Two_addresses_of_one_adapter_both_get_its_gateways) {
  ipHelper.AddAdapter({"192.168.1.10", "10.1.2.3"}, {"192.168.1.1", "10.0.0.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, (Addresses{L"192.168.1.1", L"10.0.0.1"}));
  EXPECT_EQ(list[1].Gateways, (Addresses{L"192.168.1.1", L"10.0.0.1"}));
}

TEST_F(GatewaysTest, Every_record_with_the_address_gets_the_gateways) {
  list[1].IpAddress = L"192.168.1.10";
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
  EXPECT_EQ(list[1].Gateways, Addresses{L"192.168.1.1"});
}

TEST_F(GatewaysTest, Gateways_are_added_behind_those_that_are_there) {
  list[0].Gateways = {L"192.168.1.9"};
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, (Addresses{L"192.168.1.9", L"192.168.1.1"}));
}

TEST_F(GatewaysTest, An_address_that_the_list_does_not_have_is_not_added) {
  ipHelper.AddAdapter({"172.16.0.1"}, {"172.16.0.254"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_TRUE(list[0].Gateways.empty());
  EXPECT_TRUE(list[1].Gateways.empty());
}

TEST_F(GatewaysTest, Addresses_are_compared_as_texts) {
  ipHelper.AddAdapter({"192.168.001.10"}, {"192.168.1.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_TRUE(list[0].Gateways.empty());
}

TEST_F(GatewaysTest, No_gateway_in_the_systems_words_is_kept_as_it_was_read) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"0.0.0.0"});
  ipHelper.AddAdapter({"10.1.2.3"}, {""});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, Addresses{L"0.0.0.0"});
  EXPECT_EQ(list[1].Gateways, Addresses{L""});
}

TEST_F(GatewaysTest, A_helper_without_adapters_leaves_the_list_as_it_is) {
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(ipHelper.calls, 1);
  EXPECT_EQ(list.size(), 2u);
}

TEST_F(GatewaysTest, Any_answer_but_an_overflow_to_the_query_of_the_size_leaves_the_list_as_it_is) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  for (const uint32_t answer : {0u, 50u, 232u}) {
    ipHelper.calls = 0;
    ipHelper.sizeResult = answer;
    EXPECT_TRUE(FillGateways(ipHelper, list));
    EXPECT_EQ(ipHelper.calls, 1);
    EXPECT_TRUE(list[0].Gateways.empty());
  }
}

TEST_F(GatewaysTest, Adapters_that_are_announced_and_not_delivered_are_a_failure) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.fillResult = 87;
  EXPECT_FALSE(FillGateways(ipHelper, list));
  EXPECT_TRUE(list[0].Gateways.empty());
}

TEST_F(GatewaysTest, An_announced_size_that_no_PC_needs_is_a_failure) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.announcedSize = 0xFFFFFFFF;
  EXPECT_FALSE(FillGateways(ipHelper, list));
  EXPECT_EQ(ipHelper.calls, 1);
}

TEST_F(GatewaysTest, An_announced_size_of_nothing_is_survived) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.announcedSize = 0;
  EXPECT_FALSE(FillGateways(ipHelper, list));
}

TEST_F(GatewaysTest, A_list_that_grows_before_it_is_read_is_asked_for_three_times) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.growths = 2;
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
  ipHelper.growths = 3;
  ipHelper.calls = 0;
  EXPECT_FALSE(FillGateways(ipHelper, list));
  EXPECT_EQ(ipHelper.calls, 4);
}

TEST_F(GatewaysTest, A_list_is_read_up_to_its_64th_link) {
  const std::vector<std::string> addresses(70, "192.168.1.10");
  const std::vector<std::string> gateways(70, "192.168.1.1");
  AddGateways(Lay({{addresses, gateways}}), list);
  EXPECT_EQ(list[0].Gateways.size(), 64U * 64U);

  std::vector<AdapterChain::Adapter> adapters(70, {{"10.1.2.3"}, {"10.0.0.1"}});
  AddGateways(Lay(adapters), list);
  EXPECT_EQ(list[1].Gateways.size(), 64U);
}

TEST_F(GatewaysTest, A_text_that_fills_its_field_ends_with_the_field) {
  list[0].IpAddress = L"1234567890123456";
  const auto buffer = Lay({{{"1234567890123456"}, {"6543210987654321"}}});
  AddGateways(buffer, list);
  EXPECT_EQ(list[0].Gateways, Addresses{L"6543210987654321"});
}

TEST_F(GatewaysTest, A_text_is_cut_at_its_first_NUL) {
  auto buffer = Lay({{{"192.168.1.10"}, {"192.168.1.1"}}});
  IpAdapterInfo info = ReadAdapter(buffer, 0);
  std::memcpy(info.IpAddressList.IpAddress, "192.168.1.10\0ab", 16);
  WriteAdapter(buffer, 0, info);
  AddGateways(buffer, list);
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
}

TEST_F(GatewaysTest, Nothing_is_read_from_a_buffer_shorter_than_one_record) {
  const std::vector<std::byte> whole = Lay({{{"192.168.1.10"}, {"192.168.1.1"}}});
  for (const size_t size : {size_t{0}, size_t{1}, sizeof(IpAdapterInfo) - 1}) {
    const std::vector<std::byte> buffer(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    AddGateways(buffer, list);
    EXPECT_TRUE(list[0].Gateways.empty());
  }
}

TEST_F(GatewaysTest, A_link_outside_the_buffer_ends_the_walk) {
  const std::vector<AdapterChain::Adapter> adapters{{{"192.168.1.10"}, {"192.168.1.1"}},
                                                    {{"10.1.2.3"}, {"10.0.0.1"}}};
  auto buffer = Lay(adapters);
  const auto begin = reinterpret_cast<std::uintptr_t>(buffer.data());
  for (const std::uintptr_t place : {std::uintptr_t{1}, begin - 1, begin + buffer.size(),
                                     begin + buffer.size() - sizeof(IpAdapterInfo) + 1, ~std::uintptr_t{0}}) {
    IpAdapterInfo info = ReadAdapter(buffer, 0);
    info.Next = reinterpret_cast<const IpAdapterInfo*>(place);
    info.IpAddressList.Next = reinterpret_cast<const IpAddrString*>(place);
    info.GatewayList.Next = reinterpret_cast<const IpAddrString*>(begin + buffer.size() - 8);
    WriteAdapter(buffer, 0, info);
    list[0].Gateways.clear();
    AddGateways(buffer, list);
    EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
    EXPECT_TRUE(list[1].Gateways.empty());
  }
}

TEST_F(GatewaysTest, A_chain_of_adapters_that_goes_round_is_walked_once) {
  auto buffer = Lay({{{"192.168.1.10"}, {"192.168.1.1"}}, {{"10.1.2.3"}, {"10.0.0.1"}}});
  IpAdapterInfo second = ReadAdapter(buffer, AdapterChain::kAdapterSize);
  second.Next = reinterpret_cast<const IpAdapterInfo*>(buffer.data());
  WriteAdapter(buffer, AdapterChain::kAdapterSize, second);
  AddGateways(buffer, list);
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
  EXPECT_EQ(list[1].Gateways, Addresses{L"10.0.0.1"});
}

TEST_F(GatewaysTest, A_list_of_gateways_that_goes_round_is_walked_once) {
  auto buffer = Lay({{{"192.168.1.10"}, {"192.168.1.1", "192.168.1.2"}}});
  const IpAdapterInfo info = ReadAdapter(buffer, 0);
  IpAddrString link;
  std::byte* const place = buffer.data() + AdapterChain::kAdapterSize;
  std::memcpy(&link, place, sizeof link);
  link.Next = reinterpret_cast<const IpAddrString*>(buffer.data() + offsetof(IpAdapterInfo, GatewayList));
  std::memcpy(place, &link, sizeof link);
  EXPECT_EQ(info.GatewayList.Next, reinterpret_cast<const IpAddrString*>(place));
  AddGateways(buffer, list);
  EXPECT_EQ(list[0].Gateways, (Addresses{L"192.168.1.1", L"192.168.1.2"}));
}

}  // namespace
}  // namespace tarvik::test
