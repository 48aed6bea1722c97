#include "net/interface_list.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {
namespace {

struct InterfaceListTest : testing::Test {
  // Left over from an earlier query; every result replaces it.
  std::vector<LocalAddressRecord> list{{L"9.9.9.9", L"", {}}, {L"8.8.8.8", L"", {}}};
  FakeWinsock winsock;

  void ExpectOneEmptyRecord() {
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].IpAddress, L"");
    EXPECT_EQ(list[0].SubnetMask, L"");
    EXPECT_TRUE(list[0].Gateways.empty());
  }
};

TEST_F(InterfaceListTest, Addresses_and_masks_are_listed_in_the_librarys_order) {
  winsock.AddInterface("192.168.1.10", "255.255.255.0");
  winsock.AddInterface("10.1.2.3", "255.0.0.0");
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].IpAddress, L"192.168.1.10");
  EXPECT_EQ(list[0].SubnetMask, L"255.255.255.0");
  EXPECT_TRUE(list[0].Gateways.empty());
  EXPECT_EQ(list[1].IpAddress, L"10.1.2.3");
  EXPECT_EQ(list[1].SubnetMask, L"255.0.0.0");
}

TEST_F(InterfaceListTest, A_UDP_socket_is_asked_for_ten_entries_and_closed) {
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(winsock.socketArguments, (std::array{2, 2, 17}));
  EXPECT_TRUE(winsock.plainSocket);
  EXPECT_EQ(winsock.ioctlCode, 0x4004747Fu);
  EXPECT_EQ(winsock.ioctlBufferSize, 760u);
  EXPECT_TRUE(winsock.openSockets.empty());
}

TEST_F(InterfaceListTest, Only_127_0_0_1_of_the_loopback_network_is_skipped) {
  winsock.AddInterface("127.0.0.1", "255.0.0.0");
  winsock.AddInterface("127.0.0.2", "255.0.0.0");
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"127.0.0.2");
}

TEST_F(InterfaceListTest, A_PC_with_only_the_loopback_interface_has_an_empty_list) {
  winsock.AddInterface("127.0.0.1", "255.0.0.0");
  EXPECT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_TRUE(list.empty());
}

TEST_F(InterfaceListTest, Only_the_first_ten_interfaces_are_listed) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 10u);
  EXPECT_EQ(list[9].IpAddress, L"10.0.0.10");
}

TEST_F(InterfaceListTest, The_first_ten_are_listed_even_if_the_library_rejects_the_small_buffer) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  winsock.refusesSmallBuffer = true;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 10u);
  EXPECT_EQ(list[9].IpAddress, L"10.0.0.10");
}

TEST_F(InterfaceListTest, A_byte_count_beyond_the_buffer_is_ignored) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  winsock.ioctlReturned = 0xFFFFFFFF;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(list.size(), 10u);
}

TEST_F(InterfaceListTest, An_incomplete_entry_is_skipped) {
  winsock.AddInterface("10.0.0.1", "255.0.0.0");
  winsock.AddInterface("10.0.0.2", "255.0.0.0");
  winsock.ioctlReturned = 2 * 76 - 1;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(list.size(), 1u);
}

TEST_F(InterfaceListTest, Without_a_socket_the_list_has_one_empty_record) {
  winsock.socketOpens = false;
  EXPECT_FALSE(GetInterfaceList(winsock, list));
  ExpectOneEmptyRecord();
}

TEST_F(InterfaceListTest, A_failed_query_leaves_one_empty_record_and_no_open_socket) {
  winsock.AddInterface("10.0.0.1", "255.0.0.0");
  winsock.ioctlSucceeds = false;
  EXPECT_FALSE(GetInterfaceList(winsock, list));
  ExpectOneEmptyRecord();
  EXPECT_TRUE(winsock.openSockets.empty());
}

TEST_F(InterfaceListTest, A_socket_that_cannot_be_closed_leaves_one_empty_record) {
  winsock.AddInterface("10.0.0.1", "255.0.0.0");
  winsock.closeResult = -1;
  EXPECT_FALSE(GetInterfaceList(winsock, list));
  ExpectOneEmptyRecord();
}

TEST(ParseInterfaceList, Each_record_has_the_netmask_and_not_the_broadcast_address) {
  std::vector<std::byte> entry(76);
  for (size_t i = 0; i < entry.size(); ++i) entry[i] = static_cast<std::byte>(i);
  const auto list = ParseInterfaceList(entry);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"8.9.10.11");
  EXPECT_EQ(list[0].SubnetMask, L"56.57.58.59");
}

TEST(ParseInterfaceList, No_entries_make_an_empty_list) { EXPECT_TRUE(ParseInterfaceList({}).empty()); }

}  // namespace
}  // namespace tarvik::test
