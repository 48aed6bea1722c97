#include "about/os_version_info.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_system.h"

namespace tarvik::test {
namespace {

struct OsVersionInfoTest : testing::Test {
  OsVersionInfo Info(uint32_t platform, uint32_t major, uint32_t minor) {
    system.platformId = platform;
    system.majorVersion = major;
    system.minorVersion = minor;
    return OsVersionInfo(system);
  }
  FakeSystem system;
};

TEST_F(OsVersionInfoTest, The_name_is_the_platform_and_the_version_numbers) {
  EXPECT_EQ(Info(2, 6, 1).GetVersionName(), L"Windows NT Running 6.1.0");
  EXPECT_EQ(Info(1, 4, 10).GetVersionName(), L"Windows 95 Running 4.10.0");
  EXPECT_EQ(Info(0, 3, 10).GetVersionName(), L"Win32 Running 3.10.0");
}

TEST_F(OsVersionInfoTest, A_version_matches_at_most_one_release) {
  const auto kinds = [](const OsVersionInfo& info) {
    return std::string() + (info.IsWinNt351() ? "351 " : "") + (info.IsWinNt40() ? "40 " : "") +
           (info.IsWin95() ? "95 " : "") + (info.IsWin2000() ? "2000 " : "") + (info.IsWinXP() ? "XP " : "") +
           (info.IsVista() ? "Vista " : "");
  };
  EXPECT_EQ(kinds(Info(2, 3, 51)), "351 ");
  EXPECT_EQ(kinds(Info(2, 4, 0)), "40 ");
  EXPECT_EQ(kinds(Info(1, 4, 0)), "95 ");
  EXPECT_EQ(kinds(Info(1, 4, 90)), "95 ");
  EXPECT_EQ(kinds(Info(2, 5, 0)), "2000 ");
  EXPECT_EQ(kinds(Info(2, 5, 1)), "XP ");
  EXPECT_EQ(kinds(Info(2, 6, 0)), "Vista ");
  EXPECT_EQ(kinds(Info(2, 10, 0)), "");
}

TEST_F(OsVersionInfoTest, A_failed_query_gives_no_name_and_matches_no_release) {
  system.versionKnown = false;
  const OsVersionInfo info = Info(2, 6, 0);
  EXPECT_EQ(info.GetVersionName(), L"");
  EXPECT_FALSE(info.IsVista());
  EXPECT_FALSE(info.IsWin95());
}

}  // namespace
}  // namespace tarvik::test
