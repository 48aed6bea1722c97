#include "net/local_configuration.h"

#include <gtest/gtest.h>

#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

int16_t KindOf(uint32_t platformId, uint32_t major) {
  FakeSystem system;
  system.platformId = platformId;
  system.majorVersion = major;
  int16_t kind = 99;
  const bool supported = GetOsKind(system, kind);
  EXPECT_EQ(supported, kind != -1);
  EXPECT_EQ(system.askedSize, 148u);
  return kind;
}

TEST(GetOsKind, Windows_95_and_98_are_0) { EXPECT_EQ(KindOf(1, 4), 0); }

TEST(GetOsKind, Windows_NT_4_is_1) { EXPECT_EQ(KindOf(2, 4), 1); }

TEST(GetOsKind, Every_later_Windows_NT_is_2) {
  EXPECT_EQ(KindOf(2, 5), 2);
  EXPECT_EQ(KindOf(2, 6), 2);
  EXPECT_EQ(KindOf(2, 10), 2);
}

TEST(GetOsKind, Windows_NT_3_and_unknown_platforms_are_not_supported) {
  EXPECT_EQ(KindOf(2, 3), -1);
  EXPECT_EQ(KindOf(0, 3), -1);
  EXPECT_EQ(KindOf(3, 5), -1);
}

TEST(GetOsKind, A_failed_version_query_counts_as_unsupported) {
  FakeSystem system;
  system.versionKnown = false;
  int16_t kind = 99;
  EXPECT_FALSE(GetOsKind(system, kind));
  EXPECT_EQ(kind, -1);
}

struct LocalConfigurationTest : testing::Test, FakePc {
  LocalConfigurationTest() {
    winsock.AddInterface("127.0.0.1", "255.0.0.0");
    winsock.AddInterface("192.168.1.10", "255.255.255.0");
    ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
    processes.onStart = [this] {
      files.contents[L"C:\\Tarvik\\ipconfig.txt"] = "IP Address: 10.0.0.1\r\nSubnet Mask: 255.0.0.0\r\n";
    };
  }

  bool Get() { return GetIpConfiguration(context, libraries, list); }

  std::vector<LocalAddressRecord> list;
};

TEST_F(LocalConfigurationTest, The_interface_list_gets_the_adapters_gateways) {
  for (const uint32_t platformId : {1u, 2u}) {
    system.platformId = platformId;
    system.majorVersion = platformId == 1 ? 4 : 6;
    ASSERT_TRUE(Get());
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].IpAddress, L"192.168.1.10");
    EXPECT_EQ(list[0].SubnetMask, L"255.255.255.0");
    EXPECT_EQ(list[0].Gateways, std::vector<std::wstring>{L"192.168.1.1"});
  }
  EXPECT_TRUE(processes.commandLines.empty());
}

TEST_F(LocalConfigurationTest, On_Windows_NT_4_ipconfig_is_run) {
  system.majorVersion = 4;
  ASSERT_TRUE(Get());
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"10.0.0.1");
  EXPECT_EQ(ipHelper.calls, 0);
}

TEST_F(LocalConfigurationTest, A_failure_of_ipconfig_is_a_failure) {
  system.majorVersion = 4;
  processes.processId = 0;
  EXPECT_FALSE(Get());
}

TEST_F(LocalConfigurationTest, On_an_unsupported_system_nothing_is_called) {
  system.majorVersion = 3;
  EXPECT_FALSE(Get());
  EXPECT_EQ(winsock.ioctlCode, 0u);
  EXPECT_TRUE(processes.commandLines.empty());
}

TEST_F(LocalConfigurationTest, A_PC_with_only_the_loopback_interface_has_an_empty_list) {
  winsock.interfaceBytes.clear();
  winsock.AddInterface("127.0.0.1", "255.0.0.0");
  ipHelper.adapters.clear();
  EXPECT_TRUE(Get());
  EXPECT_TRUE(list.empty());
}

TEST_F(LocalConfigurationTest, Without_an_interface_list_the_adapters_are_not_read) {
  winsock.ioctlSucceeds = false;
  EXPECT_FALSE(Get());
  EXPECT_EQ(list.size(), 1u);
  EXPECT_EQ(ipHelper.calls, 0);
}

TEST_F(LocalConfigurationTest, Adapters_that_cannot_be_read_leave_one_empty_record) {
  winsock.AddInterface("10.0.0.1", "255.0.0.0");
  ipHelper.fillResult = 87;
  EXPECT_FALSE(Get());
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"");
}

}  // namespace
}  // namespace tarvik::test
