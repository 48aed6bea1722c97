// What the FTP check reports to the recorder besides its lines.

#include <gtest/gtest.h>

#include "ftp/ftp_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_wininet.h"

namespace tarvik::test {
namespace {

class FtpFactsTest : public testing::Test, protected FakeContext {
 protected:
  const report::FtpFacts& Run(const std::wstring& user = L"cnc") {
    TestFtp(
        context, wininet, codePage, system, [](bool) {}, L"192.168.1.100", user, L"secret");
    return recorder.run.facts.ftp;
  }

  FakeWininet wininet;
};

TEST_F(FtpFactsTest, The_login_the_replies_and_how_many_entries_were_listed) {
  wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
  wininet.entries = {FakeWininet::Directory("."), FakeWininet::File("a.txt", 12),
                     FakeWininet::Directory("d")};
  const report::FtpFacts& facts = Run();
  EXPECT_TRUE(facts.loggedIn);
  EXPECT_TRUE(facts.hasUser);
  EXPECT_EQ(facts.loginReply, L"230 logged in");
  EXPECT_EQ(facts.directoryReply, L"257 \"/\"");
  EXPECT_EQ(facts.endReply, L"226 done");
  EXPECT_TRUE(facts.enumerated);
  EXPECT_EQ(facts.entries, 2);
  EXPECT_EQ(facts.progress, report::Progress::Ended);
}

TEST_F(FtpFactsTest, A_login_without_a_listing) {
  wininet.replies = {"230 logged in", "257 \"/\"", "425 no data connection"};
  const report::FtpFacts& facts = Run();
  EXPECT_TRUE(facts.loggedIn);
  EXPECT_FALSE(facts.enumerated);
  EXPECT_EQ(facts.entries, 0);
}

TEST_F(FtpFactsTest, A_refused_login_keeps_the_reply) {
  wininet.failing.insert("InternetConnectA");
  wininet.replies = {"530 Login incorrect."};
  const report::FtpFacts& facts = Run(L"");
  EXPECT_FALSE(facts.loggedIn);
  EXPECT_FALSE(facts.hasUser);
  EXPECT_EQ(facts.progress, report::Progress::Ended);
}

TEST_F(FtpFactsTest, The_error_of_a_connection_that_a_proxy_refuses) {
  wininet.failing.insert("InternetConnectA");
  wininet.connectError = 12016;
  EXPECT_EQ(Run().connectError, 12016U);
}

TEST_F(FtpFactsTest, A_stop_before_the_login_is_no_verdict) {
  pump.stop = true;
  EXPECT_EQ(Run().progress, report::Progress::Stopped);
}

}  // namespace
}  // namespace tarvik::test
