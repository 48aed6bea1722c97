#include "net/gateways.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_ip_helper.h"

namespace tarvik::test {
namespace {

using Addresses = std::vector<std::wstring>;

// Buffers are exactly as long as their chain, so AddressSanitizer reports a read of one byte beyond.
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

TEST_F(GatewaysTest, Each_record_gets_the_gateways_of_its_adapter_in_order) {
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

TEST_F(GatewaysTest, Gateways_are_added_after_existing_ones) {
  list[0].Gateways = {L"192.168.1.9"};
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, (Addresses{L"192.168.1.9", L"192.168.1.1"}));
}

TEST_F(GatewaysTest, An_address_that_is_not_in_the_list_is_not_added) {
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

TEST_F(GatewaysTest, The_systems_notation_for_no_gateway_is_kept) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"0.0.0.0"});
  ipHelper.AddAdapter({"10.1.2.3"}, {""});
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(list[0].Gateways, Addresses{L"0.0.0.0"});
  EXPECT_EQ(list[1].Gateways, Addresses{L""});
}

TEST_F(GatewaysTest, A_helper_without_adapters_leaves_the_list_unchanged) {
  EXPECT_TRUE(FillGateways(ipHelper, list));
  EXPECT_EQ(ipHelper.calls, 1);
  EXPECT_EQ(list.size(), 2u);
}

TEST_F(GatewaysTest, Any_result_but_an_overflow_for_the_size_leaves_the_list_unchanged) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  for (const uint32_t answer : {0u, 50u, 232u}) {
    ipHelper.calls = 0;
    ipHelper.sizeResult = answer;
    EXPECT_TRUE(FillGateways(ipHelper, list));
    EXPECT_EQ(ipHelper.calls, 1);
    EXPECT_TRUE(list[0].Gateways.empty());
  }
}

TEST_F(GatewaysTest, Adapters_with_a_size_that_cannot_be_read_are_a_failure) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.fillResult = 87;
  EXPECT_FALSE(FillGateways(ipHelper, list));
  EXPECT_TRUE(list[0].Gateways.empty());
}

TEST_F(GatewaysTest, A_size_that_is_not_credible_is_a_failure) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.announcedSize = 0xFFFFFFFF;
  EXPECT_FALSE(FillGateways(ipHelper, list));
  EXPECT_EQ(ipHelper.calls, 1);
}

TEST_F(GatewaysTest, A_size_of_0_is_harmless) {
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  ipHelper.announcedSize = 0;
  EXPECT_FALSE(FillGateways(ipHelper, list));
}

TEST_F(GatewaysTest, A_list_that_keeps_growing_is_tried_three_times) {
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

TEST_F(GatewaysTest, A_text_ends_at_its_first_NUL) {
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

TEST_F(GatewaysTest, A_link_outside_the_buffer_ends_the_chain) {
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

TEST_F(GatewaysTest, A_circular_chain_of_adapters_is_read_once) {
  auto buffer = Lay({{{"192.168.1.10"}, {"192.168.1.1"}}, {{"10.1.2.3"}, {"10.0.0.1"}}});
  IpAdapterInfo second = ReadAdapter(buffer, AdapterChain::kAdapterSize);
  second.Next = reinterpret_cast<const IpAdapterInfo*>(buffer.data());
  WriteAdapter(buffer, AdapterChain::kAdapterSize, second);
  AddGateways(buffer, list);
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
  EXPECT_EQ(list[1].Gateways, Addresses{L"10.0.0.1"});
}

TEST_F(GatewaysTest, A_circular_list_of_gateways_is_read_once) {
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
