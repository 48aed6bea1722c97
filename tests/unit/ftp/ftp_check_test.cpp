#include "ftp/ftp_check.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_wininet.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;
using Calls = std::vector<std::string>;

class FtpTest : public testing::Test, protected FakeContext {
 protected:
  void TearDown() override {
    EXPECT_TRUE(wininet.open.empty());
    EXPECT_EQ(wininet.misuses, 0);
    EXPECT_FALSE(busy);
  }

  bool Test(const std::wstring& host = L"192.168.1.100") {
    return TestFtp(
        context, wininet, codePage, system,
        [this](bool on) {
          EXPECT_NE(busy, on);
          busy = on;
          ++busyChanges;
        },
        host, L"cnc", L"secret");
  }

  static Lines Listing(const Lines& entries) {
    Lines lines{L"", L"Name                                     Size", std::wstring(45, L'-')};
    lines.insert(lines.end(), entries.begin(), entries.end());
    return lines;
  }

  FakeWininet wininet;
  bool busy = false;
  int busyChanges = 0;
};

TEST_F(FtpTest, Without_a_host_nothing_happens) {
  EXPECT_FALSE(Test(L""));
  EXPECT_TRUE(results.Lines().empty());
  EXPECT_TRUE(wininet.calls.empty());
  EXPECT_EQ(busyChanges, 0);
}

TEST_F(FtpTest, Replies_and_the_listing_are_shown_in_this_order) {
  wininet.replies = {"220 ready\r\n230 logged in", "257 \"/\"", "221 bye"};
  wininet.entries = {FakeWininet::File("a.txt", 12), FakeWininet::Directory("d")};
  EXPECT_TRUE(Test());
  EXPECT_EQ(results.Lines(),
            (Lines{L"", L"FTP Connect test...", L"220 ready", L"230 logged in", L"257 \"/\"", L"",
                   L"Name                                     Size", std::wstring(45, L'-'),
                   L"/d" + std::wstring(43, L' '), L"a.txt" + std::wstring(38, L' ') + L"12", L"221 bye"}));
}

TEST_F(FtpTest, The_calls_are_made_in_this_order) {
  wininet.entries = {FakeWininet::File("a")};
  Test();
  Calls names;
  for (const std::string& call : wininet.calls) names.push_back(call.substr(0, call.find('(')));
  EXPECT_EQ(names,
            (Calls{"InternetOpenA", "InternetGetLastResponseInfoA", "InternetConnectA",
                   "InternetSetStatusCallback", "InternetGetLastResponseInfoA", "FtpGetCurrentDirectoryA",
                   "InternetGetLastResponseInfoA", "FtpFindFirstFileA", "InternetCloseHandle",
                   "InternetCloseHandle", "InternetGetLastResponseInfoA", "InternetCloseHandle"}));
}

TEST_F(FtpTest, Earlier_lines_stay_in_the_list) {
  results.AddToList(L"before");
  Test();
  EXPECT_EQ(results.Lines().front(), L"before");
}

TEST_F(FtpTest, The_window_is_busy_from_before_the_connection_until_the_end) {
  wininet.replies = {"1", "2", "3"};
  wininet.onCall = [this](const std::string& name) { EXPECT_EQ(busy, name != "InternetOpenA") << name; };
  std::vector<bool> atEvents;
  pump.onEvents = [&] { atEvents.push_back(busy); };
  Test();
  EXPECT_EQ(atEvents, (std::vector<bool>{false, true, true, true}));
  EXPECT_EQ(busyChanges, 2);
}

TEST_F(FtpTest, A_rejected_login_shows_the_servers_reply) {
  wininet.failing = {"InternetConnectA"};
  wininet.replies = {"530 Login incorrect."};
  EXPECT_FALSE(Test());
  EXPECT_EQ(results.Lines(), (Lines{L"", L"FTP Connect test...", L"530 Login incorrect."}));
  EXPECT_TRUE(wininet.CallsOf("FtpGetCurrentDirectoryA").empty());
}

TEST_F(FtpTest, A_failed_connection_without_a_reply_is_reported) {
  wininet.failing = {"InternetConnectA"};
  EXPECT_FALSE(Test());
  EXPECT_EQ(results.Lines(), (Lines{L"", L"FTP Connect test...", L"Cannot connect ..."}));
}

TEST_F(FtpTest, An_unreachable_server_does_not_show_an_earlier_servers_reply) {
  wininet.replies = {"230 logged in", "257 \"/\"", "226 Transfer complete."};
  EXPECT_TRUE(Test());
  EXPECT_EQ(results.Lines().back(), L"226 Transfer complete.");
  wininet.failing = {"InternetConnectA"};
  // Timed out, name not resolved, cannot connect, aborted, reset, and a server that hangs up without a word.
  for (const uint32_t error : {12002U, 12007U, 12029U, 12030U, 12031U, 12110U, 0U}) {
    wininet.connectError = error;
    results.ClearList();
    EXPECT_FALSE(Test()) << error;
    EXPECT_EQ(results.Lines(), (Lines{L"", L"FTP Connect test...", L"Cannot connect ..."})) << error;
  }
}

TEST_F(FtpTest, The_same_rejection_is_shown_each_time) {
  wininet.failing = {"InternetConnectA"};
  for (const uint32_t error : {12003U, 12013U, 12014U, 12015U}) {
    wininet.connectError = error;
    wininet.replies = {"530 Login incorrect."};
    EXPECT_FALSE(Test()) << error;
    EXPECT_EQ(results.Lines().back(), L"530 Login incorrect.") << error;
  }
}

TEST_F(FtpTest, A_server_that_hangs_up_is_shown_with_its_last_reply) {
  wininet.heldReply = "226 Transfer complete.";
  wininet.failing = {"InternetConnectA"};
  wininet.connectError = 12031;
  wininet.replies = {"421 Too many users."};
  EXPECT_FALSE(Test());
  EXPECT_EQ(results.Lines().back(), L"421 Too many users.");
}

TEST_F(FtpTest, Without_a_session_there_is_no_connection) {
  wininet.failing = {"InternetOpenA"};
  EXPECT_FALSE(Test());
  EXPECT_EQ(results.Lines().back(), L"Cannot connect ...");
}

TEST_F(FtpTest, An_empty_reply_after_a_login_is_one_empty_line) {
  wininet.failing = {"FtpFindFirstFileA"};
  EXPECT_TRUE(Test());
  Lines expected{L"", L"FTP Connect test...", L"", L""};
  for (const std::wstring& line : Listing({})) expected.push_back(line);
  expected.push_back(L"");
  EXPECT_EQ(results.Lines(), expected);
}

TEST_F(FtpTest, A_directory_that_cannot_be_read_does_not_change_the_verdict) {
  wininet.failing = {"FtpGetCurrentDirectoryA", "FtpFindFirstFileA", "InternetGetLastResponseInfoA"};
  EXPECT_TRUE(Test());
}

TEST_F(FtpTest, A_stop_requested_before_the_connection_prevents_it) {
  pump.stop = true;
  EXPECT_FALSE(Test());
  EXPECT_TRUE(wininet.CallsOf("InternetConnectA").empty());
  EXPECT_EQ(busyChanges, 0);
}

TEST_F(FtpTest, A_missing_function_leaks_nothing) {
  for (const char* call :
       {"InternetOpenA", "InternetConnectA", "InternetSetStatusCallback", "InternetGetLastResponseInfoA",
        "FtpGetCurrentDirectoryA", "FtpFindFirstFileA", "InternetFindNextFileA"}) {
    wininet.entries = {FakeWininet::File("a")};
    wininet.throwing = call;
    EXPECT_THROW(Test(), RuntimeError) << call;
    EXPECT_TRUE(wininet.open.empty()) << call;
    EXPECT_FALSE(busy) << call;
  }
}

TEST_F(FtpTest, A_list_that_rejects_any_line_leaks_nothing) {
  for (const char* call : {"InternetConnectA", "FtpGetCurrentDirectoryA", "FtpFindFirstFileA"}) {
    wininet.entries = {FakeWininet::File("a")};
    view.refusing = false;
    wininet.onCall = [&](const std::string& name) { view.refusing = view.refusing || name == call; };
    EXPECT_THROW(Test(), RuntimeError) << call;
    EXPECT_TRUE(wininet.open.empty()) << call;
    EXPECT_FALSE(busy) << call;
  }
}

TEST_F(FtpTest, A_reply_of_megabytes_of_lines_leaves_the_list_bounded) {
  std::string reply;
  for (int i = 0; i < 300'000; ++i) reply += "220-line\r\n";
  wininet.replies = {reply, "257", "226"};
  EXPECT_TRUE(Test());
  EXPECT_LE(results.Lines().size(), 1001U);
}

TEST_F(FtpTest, A_reply_of_megabytes_without_a_line_end_is_one_line) {
  wininet.failing = {"InternetConnectA"};
  wininet.replies = {std::string(3'000'000, 'x')};
  EXPECT_FALSE(Test());
  ASSERT_EQ(results.Lines().size(), 3U);
  EXPECT_EQ(results.Lines()[2].size(), 3'000'000U);
}

TEST_F(FtpTest, Bytes_that_are_not_text_are_one_line_and_do_not_hide_the_next) {
  std::string reply;
  for (int byte = 255; byte > 0; --byte) reply.push_back(static_cast<char>(byte));
  wininet.replies = {reply};
  EXPECT_TRUE(Test());
  // 16 pairs without a meaning, the half-width kana, 17 pairs more (the last takes the byte 0x7F), ASCII.
  std::wstring expected(16, L'?');
  for (wchar_t kana = 0xFF9F; kana >= 0xFF61; --kana) expected.push_back(kana);
  expected.append(17, L'?');
  for (wchar_t letter = 0x7E; letter > 0; --letter) expected.push_back(letter);
  ASSERT_GE(results.Lines().size(), 3U);
  EXPECT_EQ(results.Lines()[2], expected);
}

TEST_F(FtpTest, After_40000_entries_the_list_shows_the_last_ones_and_the_test_passes) {
  for (int i = 0; i < 40'000; ++i) wininet.entries.push_back(FakeWininet::File(std::to_string(100'000 + i)));
  wininet.replies = {"220", "257", "221"};
  EXPECT_TRUE(Test());
  EXPECT_EQ(results.Lines().size(), (2U + 2 + 3 + 40'000 + 1) % 1001);
  EXPECT_EQ(results.Lines()[results.Lines().size() - 2].substr(0, 6), L"139999");
}

}  // namespace
}  // namespace tarvik::test
