#include "net/addresses.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {
namespace {

struct AddressesTest : testing::Test {
  FakeWinsock winsock;
  FakeCodePage codePage;
};

TEST_F(AddressesTest, HostToAddress_accepts_dotted_text_without_a_look_up) {
  EXPECT_EQ(HostToAddress(winsock, codePage, L"192.168.1.10"), AddressNumber("192.168.1.10"));
  EXPECT_TRUE(winsock.lookups.empty());
}

TEST_F(AddressesTest, HostToAddress_reads_octal_hexadecimal_and_short_forms_as_Windows_does) {
  const auto address = [this](const wchar_t* text) { return HostToAddress(winsock, codePage, text); };
  EXPECT_EQ(address(L"192.168.1.020"), AddressNumber("192.168.1.16"));
  EXPECT_EQ(address(L"0xC0.0250.1.0x0a"), AddressNumber("192.168.1.10"));
  EXPECT_EQ(address(L"192.168.266"), AddressNumber("192.168.1.10"));
  EXPECT_EQ(address(L"10.258"), AddressNumber("10.0.1.2"));
  EXPECT_EQ(address(L"1"), AddressNumber("0.0.0.1"));
  EXPECT_TRUE(winsock.lookups.empty());
  for (const wchar_t* const text : {L"192.168.1.099", L"1.2.3.4.5", L"1.2.3.", L"1..2", L"0x", L"4294967296"})
    EXPECT_EQ(address(text), kNoAddress);
}

TEST_F(AddressesTest, HostToAddress_returns_the_first_of_several_addresses) {
  winsock.AddHost("cnc1", {"192.168.1.100", "10.0.0.7"});
  EXPECT_EQ(HostToAddress(winsock, codePage, L"cnc1"), AddressNumber("192.168.1.100"));
}

TEST_F(AddressesTest, HostToAddress_converts_the_name_to_the_code_page) {
  winsock.AddHost(codePage.ToAnsi(L"旋盤"), {"192.168.1.100"});
  EXPECT_EQ(HostToAddress(winsock, codePage, L"旋盤"), AddressNumber("192.168.1.100"));
}

TEST_F(AddressesTest, HostToAddress_of_an_unknown_name_is_kNoAddress) {
  EXPECT_EQ(HostToAddress(winsock, codePage, L"nobody"), kNoAddress);
}

TEST_F(AddressesTest, HostToAddress_looks_255_255_255_255_up_as_a_name) {
  EXPECT_EQ(HostToAddress(winsock, codePage, L"255.255.255.255"), kNoAddress);
  EXPECT_EQ(winsock.lookups, std::vector<std::string>{"255.255.255.255"});
  winsock.AddHost("255.255.255.255", {"10.0.0.1"});
  EXPECT_EQ(HostToAddress(winsock, codePage, L"255.255.255.255"), AddressNumber("10.0.0.1"));
}

TEST_F(AddressesTest, HostToAddress_of_an_entry_without_addresses_is_kNoAddress) {
  winsock.AddHost("empty", {});
  EXPECT_EQ(HostToAddress(winsock, codePage, L"empty"), kNoAddress);
  winsock.withoutAddressList = true;
  EXPECT_EQ(HostToAddress(winsock, codePage, L"empty"), kNoAddress);
}

TEST_F(AddressesTest, HostToAddress_copies_only_octets_that_exist_and_fit) {
  winsock.AddRawHost("short", {{10, 20}}, 2);
  winsock.AddRawHost("long", {{10, 20, 30, 40, 50, 60}}, 6);
  winsock.AddRawHost("negative", {{10}}, -1);
  EXPECT_EQ(HostToAddress(winsock, codePage, L"short"), AddressNumber("10.20.255.255"));
  EXPECT_EQ(HostToAddress(winsock, codePage, L"long"), AddressNumber("10.20.30.40"));
  EXPECT_EQ(HostToAddress(winsock, codePage, L"negative"), kNoAddress);
}

TEST_F(AddressesTest, IpToString_returns_the_dotted_text) {
  EXPECT_EQ(IpToString(winsock, AddressNumber("192.168.1.10")), L"192.168.1.10");
  EXPECT_EQ(IpToString(winsock, 0), L"0.0.0.0");
}

TEST_F(AddressesTest, The_first_octet_is_the_lowest_byte_in_memory) {
  const uint32_t number = HostToAddress(winsock, codePage, L"1.2.3.4");
  EXPECT_EQ(*reinterpret_cast<const unsigned char*>(&number), 1);
}

TEST_F(AddressesTest, IpToString_without_a_text_from_the_library_is_empty) {
  winsock.noText = true;
  EXPECT_EQ(IpToString(winsock, AddressNumber("192.168.1.10")), L"");
}

TEST(DottedText, Decimal_octets_are_joined_without_padding) {
  const unsigned char octets[] = {0, 9, 10, 255};
  EXPECT_EQ(DottedText(octets), L"0.9.10.255");
  EXPECT_EQ(DottedText({}), L"");
}

}  // namespace
}  // namespace tarvik::test
