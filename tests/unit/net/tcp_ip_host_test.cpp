#include "net/tcp_ip_host.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

struct TcpIpHostTest : testing::Test {
  TcpIpHost Host() { return TcpIpHost(winsock, codePage, boxes); }

  FakeWinsock winsock;
  FakeCodePage codePage;
  FakeBoxes boxes;
};

TEST_F(TcpIpHostTest, One_instance_is_one_session_of_version_1_1) {
  {
    const TcpIpHost host = Host();
    EXPECT_EQ(winsock.startups, 1);
    EXPECT_EQ(winsock.requestedVersion, 0x0101);
    EXPECT_EQ(winsock.cleanups, 0);
  }
  EXPECT_EQ(winsock.startups, 1);
  EXPECT_EQ(winsock.cleanups, 1);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TcpIpHostTest, A_failed_start_up_shows_only_the_last_socket_error) {
  winsock.startupResult = 10092;
  winsock.lastError = 10091;
  winsock.data.wVersion = 0;
  winsock.data.iMaxSockets = 0;
  const TcpIpHost host = Host();
  EXPECT_EQ(boxes.Texts(), Lines{L"SocketsInitialize Winsock.dll is not responding. Error=10091"});
}

TEST_F(TcpIpHostTest, A_failed_start_up_does_not_prevent_look_ups_or_the_clean_up) {
  winsock.startupResult = 10091;
  winsock.AddHost("cnc1", {"192.168.1.100"});
  {
    TcpIpHost host = Host();
    EXPECT_EQ(host.IpAddr(L"cnc1"), L"192.168.1.100");
  }
  EXPECT_EQ(winsock.cleanups, 1);
}

TEST_F(TcpIpHostTest, A_version_below_1_1_is_reported) {
  winsock.data.wVersion = 0x0001;
  { const TcpIpHost host = Host(); }
  winsock.data.wVersion = 0x0900;
  { const TcpIpHost host = Host(); }
  EXPECT_EQ(boxes.Texts(), (Lines{L"Windows Sockets version 1.0 is not supported by winsock.dll ",
                                  L"Windows Sockets version 0.9 is not supported by winsock.dll "}));
}

TEST_F(TcpIpHostTest, A_version_above_1_1_is_accepted_whatever_its_minor_number) {
  winsock.data.wVersion = 0x0002;
  { const TcpIpHost host = Host(); }
  winsock.data.wVersion = 0x0201;
  { const TcpIpHost host = Host(); }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TcpIpHostTest, A_library_without_sockets_is_reported) {
  winsock.data.iMaxSockets = 0;
  const TcpIpHost host = Host();
  EXPECT_EQ(boxes.Texts(), Lines{L"This application requires a minimum of 1 supported sockets."});
}

TEST_F(TcpIpHostTest, One_socket_is_enough) {
  winsock.data.iMaxSockets = 1;
  const TcpIpHost host = Host();
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TcpIpHostTest, A_wrong_version_without_sockets_is_reported_as_a_wrong_version_only) {
  winsock.data.wVersion = 0x0001;
  winsock.data.iMaxSockets = 0;
  const TcpIpHost host = Host();
  EXPECT_EQ(boxes.boxes.size(), 1u);
}

TEST_F(TcpIpHostTest, A_failed_clean_up_shows_the_result_of_the_call) {
  winsock.cleanupResult = -1;
  winsock.lastError = 10093;
  { const TcpIpHost host = Host(); }
  EXPECT_EQ(boxes.Texts(), Lines{L"Socket error -1 occurred in Cleanup "});
}

TEST_F(TcpIpHostTest, The_host_name_ends_at_its_first_NUL) {
  winsock.hostNameResult = std::string("technician\0rest", 15);
  EXPECT_EQ(Host().HostName(), L"technician");
  EXPECT_EQ(winsock.hostNameBufferSize, 256);
}

TEST_F(TcpIpHostTest, A_host_name_without_a_NUL_ends_with_its_buffer) {
  winsock.hostNameResult = std::string(400, 'x');
  EXPECT_EQ(Host().HostName(), std::wstring(256, L'x'));
}

TEST_F(TcpIpHostTest, The_host_name_is_converted_from_the_code_page) {
  winsock.hostNameResult = codePage.ToAnsi(L"工場ﾊﾟｿｺﾝ");
  EXPECT_EQ(Host().HostName(), L"工場ﾊﾟｿｺﾝ");
}

TEST_F(TcpIpHostTest, A_host_name_that_cannot_be_read_is_empty_and_reported) {
  winsock.hostNameResult = std::nullopt;
  winsock.lastError = 10050;
  EXPECT_EQ(Host().HostName(), L"");
  EXPECT_EQ(boxes.Texts(), Lines{L"Windows Sockets error 10050"});
}

TEST_F(TcpIpHostTest, IpAddr_returns_the_last_of_several_addresses) {
  winsock.AddHost("cnc1", {"192.168.1.100", "10.0.0.7"});
  EXPECT_EQ(Host().IpAddr(L"cnc1"), L"10.0.0.7");
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(TcpIpHostTest, IpAddr_converts_the_name_to_the_code_page) {
  winsock.AddHost(codePage.ToAnsi(L"旋盤"), {"192.168.1.100"});
  EXPECT_EQ(Host().IpAddr(L"旋盤"), L"192.168.1.100");
}

TEST_F(TcpIpHostTest, The_address_of_an_unknown_name_is_empty_and_reported) {
  winsock.lookupError = 11004;
  EXPECT_EQ(Host().IpAddr(L"nobody"), L"");
  EXPECT_EQ(boxes.Texts(), Lines{L"gethostbyname(nobody)=11004"});
}

TEST_F(TcpIpHostTest, The_entrys_address_length_determines_the_octets) {
  winsock.AddRawHost("short", {{10, 20}}, 2);
  winsock.AddRawHost("long", {{0, 1, 2, 3, 4, 255}}, 6);
  TcpIpHost host = Host();
  EXPECT_EQ(host.IpAddr(L"short"), L"10.20");
  EXPECT_EQ(host.IpAddr(L"long"), L"0.1.2.3.4.255");
}

TEST_F(TcpIpHostTest, An_entry_with_an_address_length_of_0_has_no_address) {
  winsock.AddRawHost("zero", {{1}}, 0);
  winsock.AddRawHost("negative", {{1}}, -4);
  TcpIpHost host = Host();
  EXPECT_EQ(host.IpAddr(L"zero"), L"");
  EXPECT_EQ(host.IpAddr(L"negative"), L"");
}

TEST_F(TcpIpHostTest, An_entry_without_addresses_has_no_address) {
  winsock.AddHost("empty", {});
  EXPECT_EQ(Host().IpAddr(L"empty"), L"");
  winsock.withoutAddressList = true;
  EXPECT_EQ(Host().IpAddr(L"empty"), L"");
}

TEST_F(TcpIpHostTest, An_unterminated_address_list_is_read_to_the_limit) {
  std::vector<std::vector<unsigned char>> addresses(5000, {10, 0, 0, 1});
  addresses[4095] = {10, 0, 0, 2};
  winsock.AddRawHost("many", addresses, 4);
  EXPECT_EQ(Host().IpAddr(L"many"), L"10.0.0.2");
}

TEST(IsIpAddr, Four_octets_are_an_address) {
  EXPECT_TRUE(TcpIpHost::IsIpAddr(L"192.168.0.1"));
  EXPECT_TRUE(TcpIpHost::IsIpAddr(L"255.255.255.255"));
  EXPECT_TRUE(TcpIpHost::IsIpAddr(L"0.0.0.0"));
}

TEST(IsIpAddr, Leading_zeros_within_three_digits_are_accepted) {
  EXPECT_TRUE(TcpIpHost::IsIpAddr(L"010.001.000.007"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"0001.1.1.1"));
}

TEST(IsIpAddr, An_octet_above_255_is_rejected) {
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"256.1.1.1"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.1.1.999"));
}

TEST(IsIpAddr, Three_and_five_parts_are_rejected) {
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.2.3"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.2.3.4.5"));
}

TEST(IsIpAddr, An_empty_part_is_rejected) {
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1..2.3"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L".1.2.3"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.2.3."));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"..."));
}

TEST(IsIpAddr, A_dot_after_the_fourth_part_is_rejected) { EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.2.3.4.")); }

TEST(IsIpAddr, Letters_are_rejected) { EXPECT_FALSE(TcpIpHost::IsIpAddr(L"a.b.c.d")); }

TEST(IsIpAddr, An_empty_text_is_rejected) { EXPECT_FALSE(TcpIpHost::IsIpAddr(L"")); }

TEST(IsIpAddr, Spaces_and_signs_are_rejected) {
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L" 1.2.3.4"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"1.2.3.4 "));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"+1.2.3.4"));
  EXPECT_FALSE(TcpIpHost::IsIpAddr(L"-1.2.3.4"));
}

TEST(IsIpAddr, Digits_other_than_ASCII_are_rejected) { EXPECT_FALSE(TcpIpHost::IsIpAddr(L"１.2.3.4")); }

}  // namespace
}  // namespace tarvik::test
