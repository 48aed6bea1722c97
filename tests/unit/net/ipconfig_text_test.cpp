#include "net/ipconfig_text.h"

#include <gtest/gtest.h>

namespace tarvik::test {
namespace {

using Addresses = std::vector<std::wstring>;

TEST(GetValueAfterColon, The_value_is_the_trimmed_text_after_the_first_colon) {
  std::wstring value;
  EXPECT_TRUE(GetValueAfterColon(L"        IP Address. . . . . . :   192.168.1.10  ", L"IP Address", value));
  EXPECT_EQ(value, L"192.168.1.10");
  EXPECT_TRUE(GetValueAfterColon(L"IP Address: a:b", L"IP Address", value));
  EXPECT_EQ(value, L"a:b");
}

TEST(GetValueAfterColon, A_key_without_a_colon_has_no_value) {
  std::wstring value = L"old";
  EXPECT_FALSE(GetValueAfterColon(L"IP Address 192.168.1.10", L"IP Address", value));
  EXPECT_EQ(value, L"");
}

TEST(GetValueAfterColon, A_colon_without_the_key_has_no_value) {
  std::wstring value = L"old";
  EXPECT_FALSE(GetValueAfterColon(L"Subnet Mask : 255.0.0.0", L"IP Address", value));
  EXPECT_EQ(value, L"");
}

TEST(GetValueAfterColon, The_first_colon_counts_wherever_the_key_is) {
  std::wstring value;
  EXPECT_TRUE(GetValueAfterColon(L"Note: IP Address", L"IP Address", value));
  EXPECT_EQ(value, L"IP Address");
}

TEST(GetValueAfterColon, Only_spaces_are_trimmed) {
  std::wstring value;
  EXPECT_TRUE(GetValueAfterColon(L"IP Address:\t1.2.3.4 ", L"IP Address", value));
  EXPECT_EQ(value, L"\t1.2.3.4");
}

TEST(GetValueAfterColon, The_value_may_be_empty) {
  std::wstring value = L"old";
  EXPECT_TRUE(GetValueAfterColon(L"Default Gateway . . :  ", L"Default Gateway", value));
  EXPECT_EQ(value, L"");
}

TEST(ParseIpconfigText, The_output_of_Windows_NT_4_is_read) {
  const auto list = ParseIpconfigText(
      "\r\nWindows NT IP Configuration\r\n\r\nEthernet adapter NE20001:\r\n\r\n"
      "\tIP Address. . . . . . . . . : 192.168.1.10\r\n"
      "\tSubnet Mask . . . . . . . . : 255.255.255.0\r\n"
      "\tDefault Gateway . . . . . . : 192.168.1.1\r\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"192.168.1.10");
  EXPECT_EQ(list[0].SubnetMask, L"255.255.255.0");
  EXPECT_EQ(list[0].Gateways, Addresses{L"192.168.1.1"});
}

TEST(ParseIpconfigText, CR_and_LF_each_end_a_line) {
  for (const char* end : {"\r\r\n", "\r\n", "\n", "\r"}) {
    const std::string text = std::string("IP Address: 1.2.3.4") + end + "Subnet Mask: 255.0.0.0" + end;
    const auto list = ParseIpconfigText(text);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].IpAddress, L"1.2.3.4");
    EXPECT_EQ(list[0].SubnetMask, L"255.0.0.0");
  }
}

TEST(ParseIpconfigText, A_gateway_belongs_to_the_addresses_since_the_previous_gateway_line) {
  const auto list = ParseIpconfigText(
      "IP Address: 10.0.0.1\nSubnet Mask: 255.0.0.0\n"
      "IP Address: 10.0.0.2\nSubnet Mask: 255.0.0.0\n"
      "Default Gateway: 10.0.0.254\n"
      "IP Address: 172.16.0.1\nSubnet Mask: 255.255.0.0\n"
      "Default Gateway: 172.16.0.254\n");
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0].Gateways, Addresses{L"10.0.0.254"});
  EXPECT_EQ(list[1].Gateways, Addresses{L"10.0.0.254"});
  EXPECT_EQ(list[2].Gateways, Addresses{L"172.16.0.254"});
}

TEST(ParseIpconfigText, An_adapter_without_a_gateway_does_not_get_the_next_adapters_gateway) {
  const auto list = ParseIpconfigText(
      "IP Address: 10.0.0.1\nSubnet Mask: 255.0.0.0\nDefault Gateway: \n"
      "IP Address: 172.16.0.1\nSubnet Mask: 255.255.0.0\nDefault Gateway: 172.16.0.254\n");
  ASSERT_EQ(list.size(), 2u);
  EXPECT_TRUE(list[0].Gateways.empty());
  EXPECT_EQ(list[1].Gateways, Addresses{L"172.16.0.254"});
}

TEST(ParseIpconfigText, A_second_gateway_line_does_not_change_earlier_records) {
  const auto list = ParseIpconfigText(
      "IP Address: 10.0.0.1\nSubnet Mask: 255.0.0.0\nDefault Gateway: 10.0.0.254\nDefault Gateway: "
      "10.0.0.253\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].Gateways, Addresses{L"10.0.0.254"});
}

TEST(ParseIpconfigText, A_mask_before_any_address_changes_nothing) {
  const auto list =
      ParseIpconfigText("Subnet Mask: 255.0.0.0\nIP Address: 10.0.0.1\nSubnet Mask: 255.255.0.0\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].SubnetMask, L"255.255.0.0");
  EXPECT_TRUE(ParseIpconfigText("Subnet Mask: 255.0.0.0\n").empty());
}

TEST(ParseIpconfigText, A_second_mask_changes_nothing) {
  const auto list =
      ParseIpconfigText("IP Address: 10.0.0.1\nSubnet Mask: 255.0.0.0\nSubnet Mask: 255.255.0.0\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].SubnetMask, L"255.0.0.0");
}

TEST(ParseIpconfigText, An_address_without_a_mask_is_replaced_by_the_next) {
  const auto list = ParseIpconfigText(
      "IP Address: 10.0.0.1\nIP Address: 10.0.0.2\nSubnet Mask: 255.0.0.0\nDefault Gateway: 10.0.0.254\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"10.0.0.2");
  EXPECT_EQ(list[0].Gateways, Addresses{L"10.0.0.254"});
}

TEST(ParseIpconfigText, An_address_that_replaces_one_after_a_gateway_line_gets_the_next_gateway) {
  const auto list = ParseIpconfigText(
      "IP Address: 10.0.0.1\nDefault Gateway: 10.0.0.254\n"
      "IP Address: 172.16.0.1\nSubnet Mask: 255.255.0.0\nDefault Gateway: 172.16.0.254\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"172.16.0.1");
  EXPECT_EQ(list[0].Gateways, Addresses{L"172.16.0.254"});
}

TEST(ParseIpconfigText, The_last_address_is_kept_without_a_mask) {
  const auto list = ParseIpconfigText("IP Address: 10.0.0.1");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].SubnetMask, L"");
}

TEST(ParseIpconfigText, An_empty_value_adds_nothing) {
  EXPECT_TRUE(ParseIpconfigText("IP Address: \nSubnet Mask: 255.0.0.0\n").empty());
  const auto list = ParseIpconfigText("IP Address: 10.0.0.1\nSubnet Mask:\nDefault Gateway:\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].SubnetMask, L"");
  EXPECT_TRUE(list[0].Gateways.empty());
}

TEST(ParseIpconfigText, The_mask_of_an_empty_address_is_not_given_to_the_previous_address) {
  const auto list = ParseIpconfigText("IP Address: 10.0.0.1\nIP Address: \nSubnet Mask: 255.0.0.0\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"10.0.0.1");
  EXPECT_EQ(list[0].SubnetMask, L"");
}

TEST(ParseIpconfigText, The_loopback_address_is_not_listed) {
  const auto list = ParseIpconfigText(
      "IP Address: 127.0.0.1\nSubnet Mask: 255.0.0.0\nIP Address: 10.0.0.1\nIP Address: 127.0.0.1\n"
      "Subnet Mask: 255.0.0.0\nDefault Gateway: 10.0.0.254\n");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"10.0.0.1");
  EXPECT_EQ(list[0].SubnetMask, L"");
  EXPECT_EQ(list[0].Gateways, Addresses{L"10.0.0.254"});
}

TEST(ParseIpconfigText, Output_in_another_language_has_no_records) {
  EXPECT_TRUE(ParseIpconfigText("IP-Adresse. . . : 10.0.0.1\nSubnetzmaske . . : 255.0.0.0\n").empty());
  EXPECT_TRUE(ParseIpconfigText("IP \x83\x41\x83\x68\x83\x8C\x83\x58 : 10.0.0.1\n").empty());
}

TEST(ParseIpconfigText, Any_bytes_and_any_length_are_harmless) {
  const std::string long_line = "IP Address:" + std::string(200000, '\xFF');
  const auto list = ParseIpconfigText(long_line + std::string("\nSubnet Mask:\0\x01\n", 15));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress.size(), 200000u);
  EXPECT_TRUE(ParseIpconfigText("").empty());
}

}  // namespace
}  // namespace tarvik::test
