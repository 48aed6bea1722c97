#include "net/interface_list.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {
namespace {

struct InterfaceListTest : testing::Test {
  // Left over from an earlier question, to be replaced by every answer.
  std::vector<LocalAddressRecord> list{{L"9.9.9.9", L"", {}}, {L"8.8.8.8", L"", {}}};
  FakeWinsock winsock;

  void ExpectOneEmptyRecord() {
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].IpAddress, L"");
    EXPECT_EQ(list[0].SubnetMask, L"");
    EXPECT_TRUE(list[0].Gateways.empty());
  }
};

TEST_F(InterfaceListTest, Reports_addresses_and_masks_in_the_order_of_the_library) {
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

TEST_F(InterfaceListTest, Asks_a_plain_UDP_socket_with_room_for_ten_entries_and_closes_it) {
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(winsock.socketArguments, (std::array{2, 2, 17}));
  EXPECT_TRUE(winsock.plainSocket);
  EXPECT_EQ(winsock.ioctlCode, 0x4004747Fu);
  EXPECT_EQ(winsock.ioctlBufferSize, 760u);
  EXPECT_TRUE(winsock.openSockets.empty());
}

TEST_F(InterfaceListTest, The_loopback_address_is_skipped_and_no_other_of_its_network) {
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

TEST_F(InterfaceListTest, Of_more_than_ten_interfaces_the_first_ten_are_reported) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 10u);
  EXPECT_EQ(list[9].IpAddress, L"10.0.0.10");
}

TEST_F(InterfaceListTest, A_library_that_refuses_the_small_buffer_gives_the_first_ten_all_the_same) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  winsock.refusesSmallBuffer = true;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  ASSERT_EQ(list.size(), 10u);
  EXPECT_EQ(list[9].IpAddress, L"10.0.0.10");
}

TEST_F(InterfaceListTest, A_byte_count_beyond_the_buffer_is_not_believed) {
  for (int i = 1; i <= 12; ++i) winsock.AddInterface("10.0.0." + std::to_string(i), "255.0.0.0");
  winsock.ioctlReturned = 0xFFFFFFFF;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(list.size(), 10u);
}

TEST_F(InterfaceListTest, An_entry_that_is_not_whole_is_left_out) {
  winsock.AddInterface("10.0.0.1", "255.0.0.0");
  winsock.AddInterface("10.0.0.2", "255.0.0.0");
  winsock.ioctlReturned = 2 * 76 - 1;
  ASSERT_TRUE(GetInterfaceList(winsock, list));
  EXPECT_EQ(list.size(), 1u);
}

TEST_F(InterfaceListTest, Without_a_socket_there_is_one_empty_record) {
  winsock.socketOpens = false;
  EXPECT_FALSE(GetInterfaceList(winsock, list));
  ExpectOneEmptyRecord();
}

TEST_F(InterfaceListTest, A_question_that_fails_leaves_one_empty_record_and_no_open_socket) {
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

TEST(ParseInterfaceList, Takes_address_and_netmask_and_not_the_broadcast_address) {
  std::vector<std::byte> entry(76);
  for (size_t i = 0; i < entry.size(); ++i) entry[i] = static_cast<std::byte>(i);
  const auto list = ParseInterfaceList(entry);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"8.9.10.11");
  EXPECT_EQ(list[0].SubnetMask, L"56.57.58.59");
}

TEST(ParseInterfaceList, Nothing_gives_nothing) { EXPECT_TRUE(ParseInterfaceList({}).empty()); }

}  // namespace
}  // namespace tarvik::test
