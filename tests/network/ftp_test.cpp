// The Ftp page with real servers, correct and faulty ones.

#include "lab/network/ftp_server.h"

#include <algorithm>

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

using Product = FtpServer::Product;

/// Wine's internet library waits half a minute for each reply and reads a listing byte by byte.
constexpr std::chrono::seconds kTestTimeOut(600);

constexpr char kTestLine[] = "FTP Connect test...";

std::string Entry(const std::string& name, size_t nameColumns, const std::string& size) {
  return name + std::string(35 - nameColumns, ' ') + std::string(10 - size.size(), ' ') + size;
}
std::string Entry(const std::string& name, const std::string& size) { return Entry(name, name.size(), size); }

Lines Listing(const Lines& before, const Lines& entries, const Lines& after) {
  Lines lines = before;
  lines.insert(lines.end(), {"", Entry("Name", "Size"), std::string(45, '-')});
  lines.insert(lines.end(), entries.begin(), entries.end());
  lines.insert(lines.end(), after.begin(), after.end());
  return lines;
}

template <typename Suite>
class FtpTest : public LabTest<Suite> {
 protected:
  void SetUp() override {
    LabTest<Suite>::SetUp();
    for (const Product product : {Product::Vsftpd, Product::Pyftpdlib})
      if (const auto reason = FtpServer::UnsupportedReason(product)) GTEST_SKIP() << *reason;
    if (!this->IsSkipped()) this->GiveUpConnectingSoon();
  }

  static FtpServer Serve(Product product) {
    return FtpServer(LabTest<Suite>::Net(), Host::Near, product, PcForTests().cacheFolder);
  }
  static FaultyFtpServer ServeWithFault(const std::string& fault) {
    return FaultyFtpServer(LabTest<Suite>::Net(), Host::Near, fault);
  }

  /// Starts the program, clicks a button of the Ftp page and returns the result list. For Connect, returns
  /// only the lines after its title, if the list still contains it.
  Lines Test(const std::string& user = {}, const std::string& password = {}, int button = ID_cmdFtpConnect) {
    return TestIn(this->Start(), user, password, button);
  }

  /// The same in a window that is already open.
  Lines TestIn(const WindowUnderTest& window, const std::string& user = {}, const std::string& password = {},
               int button = ID_cmdFtpConnect) {
    window.SelectTab(ID_tabMode, 2);
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtPingReqCount, "1");
    window.SetText(ID_txtFtpUsername, user);
    window.SetText(ID_txtFtpPasswd, password);
    const Lines lines = ClickAndFollow(this->Program(), window, button, kTestTimeOut);
    const auto begin = std::find(lines.rbegin(), lines.rend(), kTestLine).base();
    return {button == ID_cmdFtpConnect ? begin : lines.begin(), lines.end()};
  }
};

class Ftp : public FtpTest<Ftp> {};

TEST_F(Ftp, Vsftpds_replies_and_listing_are_shown_to_anonymous_and_known_users) {
  const FtpServer server = Serve(Product::Vsftpd);
  server.AddDirectory("b");
  server.AddFile("c.txt", 3);
  server.AddFile("A.txt", 12345);
  const Lines entries = {Entry("/b", ""), Entry("A.txt", "12345"), Entry("c.txt", "3")};
  const Lines after = {"226 Directory send OK."};
  EXPECT_EQ(Test(), Listing({"230 Login successful.", "257 \"/\" is the current directory"}, entries, after));
  EXPECT_EQ(Test(kFtpUser, kFtpPassword),
            Listing({"230 Login successful.", "257 \"/mnt\" is the current directory"}, entries, after));
}

TEST_F(Ftp, Pyftpdlibs_replies_and_listing_are_shown_to_anonymous_and_known_users) {
  const FtpServer server = Serve(Product::Pyftpdlib);
  server.AddDirectory("b");
  server.AddFile("c.txt", 3);
  server.AddFile("A.txt", 12345);
  const Lines entries = {Entry("/b", ""), Entry("A.txt", "12345"), Entry("c.txt", "3")};
  EXPECT_EQ(Test(), Listing({"230 Login successful.", "257 \"/\" is the current directory."}, entries,
                            {"226 Transfer complete."}));
  EXPECT_EQ(Test(kFtpUser, kFtpPassword),
            Listing({"230 Login successful.", "257 \"/\" is the current directory."}, entries,
                    {"226 Transfer complete."}));
}

TEST_F(Ftp, A_rejected_password_shows_the_servers_reply) {
  {
    const FtpServer server = Serve(Product::Vsftpd);
    EXPECT_EQ(Test(kFtpUser, "wrong"), (Lines{"530 Login incorrect."}));
  }
  const FtpServer server = Serve(Product::Pyftpdlib);
  EXPECT_EQ(Test(kFtpUser, "wrong"), (Lines{"530 Authentication failed."}));
}

TEST_F(Ftp, An_empty_directory_shows_only_the_header) {
  {
    const FtpServer server = Serve(Product::Vsftpd);
    EXPECT_EQ(Test(), Listing({"230 Login successful.", "257 \"/\" is the current directory"}, {},
                              {"226 Directory send OK."}));
  }
  const FtpServer server = Serve(Product::Pyftpdlib);
  EXPECT_EQ(Test(), Listing({"230 Login successful.", "257 \"/\" is the current directory."}, {},
                            {"226 Transfer complete."}));
}

TEST_F(Ftp, Lines_are_sorted_in_the_order_of_the_users_language) {
  const FtpServer server = Serve(Product::Pyftpdlib);
  for (const char* name : {"b", "C", "a", "_x", "D", "10", "9", "a-c", "ab"}) server.AddFile(name);
  const Lines lines = Test();
  Lines names;
  for (size_t i = 5; i + 1 < lines.size(); ++i) names.push_back(lines[i].substr(0, lines[i].find(' ')));
  EXPECT_EQ(names, (Lines{"_x", "10", "9", "a", "ab", "a-c", "b", "C", "D"}));
}

TEST_F(Ftp, Without_a_server_or_a_cable_a_connection_error_is_shown) {
  EXPECT_EQ(Test(), Lines{"Cannot connect ..."});
  Net().PullCable(Host::Near);
  EXPECT_EQ(Test(), Lines{"Cannot connect ..."});
}

TEST_F(Ftp, A_failed_connection_shows_no_reply_of_an_earlier_session) {
  const WindowUnderTest window = Start();
  {
    const FtpServer server = Serve(Product::Vsftpd);
    EXPECT_EQ(TestIn(window).back(), "226 Directory send OK.");
  }
  EXPECT_EQ(TestIn(window), Lines{"Cannot connect ..."});
  const FtpServer server = Serve(Product::Vsftpd);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(TestIn(window, kFtpUser, "wrong"), Lines{"530 Login incorrect."});
}

TEST_F(Ftp, All_Test_pings_the_host_and_then_connects) {
  const FtpServer server = Serve(Product::Vsftpd);
  const Lines lines = WithoutTimes(Test("", "", ID_cmdAllFtpTest));
  EXPECT_EQ(lines,
            Listing({"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64", "",
                     "FTP Connect test...", "230 Login successful.", "257 \"/\" is the current directory"},
                    {}, {"226 Directory send OK."}));
}

TEST_F(Ftp, If_the_server_disconnects_during_the_login_its_last_reply_is_shown) {
  for (const auto& [fault, words] :
       {std::pair("drop USER", "220 ready"), std::pair("drop PASS", "331 password?")}) {
    const FaultyFtpServer server = ServeWithFault(fault);
    EXPECT_EQ(Test(kFtpUser, kFtpPassword), Lines{words}) << fault;
  }
}

TEST_F(Ftp, If_the_server_disconnects_after_the_login_the_listing_is_empty) {
  {
    const FaultyFtpServer server = ServeWithFault("drop PWD");
    EXPECT_EQ(Test(kFtpUser, kFtpPassword),
              Listing({"230 logged in", "230 logged in"}, {}, {"230 logged in"}));
  }
  const FaultyFtpServer server = ServeWithFault("drop PORT");
  EXPECT_EQ(Test(kFtpUser, kFtpPassword), Listing({"230 logged in", "257 \"/\""}, {}, {"200 ok"}));
}

TEST_F(Ftp, If_the_server_disconnects_during_the_listing_the_received_part_is_shown) {
  const FaultyFtpServer server = ServeWithFault("drop LIST");
  Lines lines = Test(kFtpUser, kFtpPassword);
  ASSERT_FALSE(lines.empty());
  lines.pop_back();  // Wine's library reports the incomplete line as the last reply.
  EXPECT_EQ(lines, Listing({"230 logged in", "257 \"/\""}, {Entry("a.txt", "3")}, {}));
}

TEST_F(Ftp, A_silent_server_does_not_block_the_window_forever) {
  const FaultyFtpServer server = ServeWithFault("silent");
  EXPECT_EQ(Test(), Lines{"Cannot connect ..."});
}

TEST_F(Ftp, A_greeting_of_megabytes_without_a_line_end_is_harmless) {
  const FaultyFtpServer server = ServeWithFault("greeting 3000000");
  const Lines lines = Test();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].find_first_not_of('x'), std::string::npos);
}

class LargeFtp : public FtpTest<LargeFtp> {};

TEST_F(LargeFtp, A_directory_of_1100_entries_is_listed_completely) {
  const FtpServer server = Serve(Product::Vsftpd);
  // Just enough to overflow the result list: Wine's library reads a listing byte by byte.
  for (int i = 0; i < 1100; ++i) server.AddFile("file" + std::to_string(10'000 + i));
  const Lines lines = Test();
  // Added in total: 6 lines of start-up report, 2 of title, 2 replies, 3 of header, 1,100 entries, 1 reply.
  // A full list (1,001 lines) is cleared before the next line is added, so the remainder is left.
  ASSERT_EQ(lines.size(), (6U + 2 + 2 + 3 + 1100 + 1) % 1001);
  for (size_t i = 0; i + 1 < lines.size(); ++i)
    ASSERT_EQ(lines[i], Entry("file" + std::to_string(11'100 - (lines.size() - 1) + i), "0"));
}

class JapaneseFtp : public FtpTest<JapaneseFtp> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.language = WindowsLanguage::Japanese;
    return options;
  }
};

TEST_F(JapaneseFtp, Names_are_decoded_from_code_page_932) {
  for (const Product product : {Product::Vsftpd, Product::Pyftpdlib}) {
    const FtpServer server = Serve(product);
    server.AddFile("\x8B\x40\x8A\x42.txt", 7);  // two full-width characters
    server.AddFile("\xB7\xB6\xB2.TXT", 8);      // three half-width ones
    server.AddDirectory("\x89\xC1\x8D\x48");
    const Lines lines = Test();
    EXPECT_EQ(Lines(lines.begin() + 4, lines.end() - 1),
              (Lines{std::string(45, '-'), Entry("/加工", 3, ""), Entry("ｷｶｲ.TXT", 7, "8"),
                     Entry("機械.txt", 6, "7")}));
  }
}

}  // namespace
}  // namespace tarvik::lab
