// What Windows' internet library answers where the laboratory's cannot. docs/faults.md has these lines in its
// chapter on Windows.

#include <gtest/gtest.h>

#include "ftp/ftp_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_wininet.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

constexpr uint64_t kReceiveTimeoutMs = 30'000;

struct WininetOnWindowsTest : testing::Test, FakeContext {
  bool Test() {
    return TestFtp(
        context, wininet, codePage, system, [this](bool on) { busy = on; }, L"192.168.1.100", L"cnc",
        L"secret");
  }

  static Lines WithoutEntries(const std::wstring& login, const std::wstring& folder,
                              const std::wstring& last) {
    return {L"",
            L"FTP Connect test...",
            login,
            folder,
            L"",
            L"Name                                     Size",
            std::wstring(45, L'-'),
            last};
  }

  FakeWininet wininet;
  bool busy = false;
};

TEST_F(WininetOnWindowsTest, A_data_connection_that_never_opens_keeps_the_window_busy_until_the_time_out) {
  wininet.replies = {"230 logged in", "257 \"/\"", "150 Here comes the directory listing."};
  wininet.findError = 12002;  // ERROR_INTERNET_TIMEOUT
  wininet.failing = {"FtpFindFirstFileA"};
  bool busyMeanwhile = false;
  wininet.onCall = [&](const std::string& name) {
    if (name != "FtpFindFirstFileA") return;
    pump.now += kReceiveTimeoutMs;
    busyMeanwhile = busy;
  };
  EXPECT_TRUE(Test());
  EXPECT_TRUE(busyMeanwhile);
  EXPECT_FALSE(busy);
  EXPECT_EQ(pump.now, kReceiveTimeoutMs);
  EXPECT_EQ(results.Lines(),
            WithoutEntries(L"230 logged in", L"257 \"/\"", L"150 Here comes the directory listing."));
  EXPECT_TRUE(wininet.open.empty());
}

TEST_F(WininetOnWindowsTest, A_server_that_accepts_no_argument_of_LIST_is_shown_with_its_reply) {
  wininet.replies = {"230 logged in", "257 \"/\"", "501 No arguments allowed."};
  wininet.failing = {"FtpFindFirstFileA"};  // ERROR_INTERNET_EXTENDED_ERROR
  EXPECT_TRUE(Test());
  EXPECT_EQ(wininet.CallsOf("FtpFindFirstFileA"),
            std::vector<std::string>{"FtpFindFirstFileA(*, 2214592512, 0)"});
  EXPECT_EQ(results.Lines(), WithoutEntries(L"230 logged in", L"257 \"/\"", L"501 No arguments allowed."));
}

TEST_F(WininetOnWindowsTest, The_PCs_proxy_settings_are_used) {
  Test();
  constexpr char kPreconfigured[] = "InternetOpenA(none, 0, none, none, 0)";  // INTERNET_OPEN_TYPE_PRECONFIG
  EXPECT_EQ(wininet.CallsOf("InternetOpenA"), std::vector<std::string>{kPreconfigured});
}

TEST_F(WininetOnWindowsTest, Through_a_web_proxy_only_the_header_is_shown) {
  wininet.findError = 12016;  // ERROR_INTERNET_INVALID_OPERATION
  wininet.failing = {"FtpGetCurrentDirectoryA", "FtpFindFirstFileA", "InternetGetLastResponseInfoA"};
  EXPECT_TRUE(Test());
  EXPECT_EQ(results.Lines(), WithoutEntries(L"", L"", L""));
}

TEST_F(WininetOnWindowsTest, A_web_proxy_that_rejects_the_connection_is_a_failed_connection) {
  wininet.failing = {"InternetConnectA"};
  wininet.connectError = 12016;
  EXPECT_FALSE(Test());
  EXPECT_EQ(results.Lines(), (Lines{L"", L"FTP Connect test...", L"Cannot connect ..."}));
}

}  // namespace
}  // namespace tarvik::test
