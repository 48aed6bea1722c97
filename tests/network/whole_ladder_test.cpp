// The ladder with all its rungs: echoes, the library test, the FTP server's directory.

#include "lab/network/ftp_server.h"
#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kAllRungs[] = "-PING_N 1 -X 10 -FTP_USER cnc -FTP_PASSWD terces -NXLIB_TMOUT 5 192.168.1.100";

const Lines kPing = {"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"};
const Lines kLibraryTest = {"",
                            "Get System Information test....",
                            "CNC Type\t31iB",
                            "M/T     \t M",
                            "Serise  \tG301",
                            "Version \t10.0",
                            "Max Axes\t32",
                            "Axes    \t03"};
const Lines kListing = {"",
                        "FTP Connect test...",
                        "230 Login successful.",
                        "257 \"/mnt\" is the current directory",
                        "",
                        "Name" + std::string(37, ' ') + "Size",
                        std::string(45, '-'),
                        "/b" + std::string(43, ' '),
                        "A.txt" + std::string(35, ' ') + "12345",
                        "226 Directory send OK."};

bool Has(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

template <typename Suite>
class LadderTest : public CncTest<Suite> {
 protected:
  void SetUp() override {
    CncTest<Suite>::SetUp();
    if (const auto reason = FtpServer::UnsupportedReason(FtpServer::Product::Vsftpd)) GTEST_SKIP() << *reason;
  }

  static std::unique_ptr<FtpServer> ServeFiles() {
    auto server = std::make_unique<FtpServer>(LabTest<Suite>::Net(), Host::Near, FtpServer::Product::Vsftpd,
                                              PcForTests().cacheFolder);
    server->AddDirectory("b");
    server->AddFile("A.txt", 12345);
    return server;
  }
};

class WholeLadder : public LadderTest<WholeLadder> {};

TEST_F(WholeLadder, Runs_every_rung_in_order) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(RunAtStart(kAllRungs), Joined({kPing, kLibraryTest, kListing}));
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(WholeLadder, A_target_that_does_not_answer_ends_the_ladder) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  Drop(Host::Near, "icmp type echo-request");
  EXPECT_EQ(RunAtStart(kAllRungs), (Lines{"PING test...", "ICMP_Error:11010", "Cannot ping to the Target",
                                          "Please check Target's address, cable and power"}));
  EXPECT_TRUE(Calls().empty());
}

TEST_F(WholeLadder, A_failed_library_test_ends_the_ladder) {
  const auto files = ServeFiles();
  for (const auto& [scenario, lines] :
       {std::pair("options 0\n", Lines{"No option (Extended drivers and libraries function)", ""}),
        std::pair("result options -1\n", Lines{"Option check error", ""}),
        std::pair("result sysinfo -1\n", Lines{"Get System Information error", ""}),
        std::pair("drop connect\n", Lines{"Allocate Handle error=-104"})}) {
    const Controller controller = Serve(scenario);
    EXPECT_EQ(RunAtStart(kAllRungs), Joined({kPing, {"", kTestLine}, lines})) << scenario;
  }
}

TEST_F(WholeLadder, A_rejected_access_code_ends_the_ladder) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("access_code"));
  EXPECT_EQ(RunAtStart(kAllRungs), Joined({kPing, {"", kTestLine, "Allocate Handle error=7"}}));
  EXPECT_EQ(boxes_.size(), 1U);
}

TEST_F(WholeLadder, A_missing_FTP_server_is_reported_on_the_last_rung) {
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(RunAtStart(kAllRungs),
            Joined({kPing, kLibraryTest, {"", "FTP Connect test...", "Cannot connect ..."}}));
}

TEST_F(WholeLadder, Without_option_2_there_is_no_library_test) {
  const auto files = ServeFiles();
  EXPECT_EQ(RunAtStart("-PING_N 1 -X 8 -FTP_USER cnc -FTP_PASSWD terces 192.168.1.100"),
            Joined({kPing, kListing}));
  EXPECT_TRUE(Calls().empty());
}

TEST_F(WholeLadder, Without_option_8_there_is_no_listing) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(RunAtStart("-PING_N 1 -X 2 192.168.1.100"), Joined({kPing, kLibraryTest}));
}

TEST_F(WholeLadder, All_Test_adds_the_library_test_to_the_echoes) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartOnPage();
  window.SelectTab(ID_tabMode, 0);
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), Joined({kPing, kLibraryTest})) << i;
  EXPECT_FALSE(HasCall("K7_"));
}

TEST_F(WholeLadder, All_Test_keeps_the_rungs_of_the_command_line) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartOnPage("-X 8 -FTP_USER cnc -FTP_PASSWD terces");
  window.SelectTab(ID_tabMode, 0);
  window.SetText(ID_txtFtpUsername, kFtpUser);
  window.SetText(ID_txtFtpPasswd, kFtpPassword);
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), Joined({kPing, kLibraryTest, kListing}));
}

TEST_F(WholeLadder, A_stop_during_the_echoes_skips_the_other_rungs) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = Start("-PING_N 60 -X 10 192.168.1.100");
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window) && window.LineCount(ID_lstResult) >= 2; }));
  window.Click(ID_cmdPing);
  const Lines lines = FollowRun(window);
  EXPECT_LT(lines.size(), 60U);
  EXPECT_FALSE(Has(lines, kTestLine));
  EXPECT_FALSE(Has(lines, "FTP Connect test..."));
  EXPECT_TRUE(Calls().empty());
}

TEST_F(WholeLadder, A_stop_while_the_library_blocks_skips_the_listing) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well") + "delay sysinfo 4000\n");
  const WindowUnderTest window = Start(kAllRungs);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return HasCall("nx_getoptions1"); }));
  window.Click(ID_cmdPing);
  const Lines lines = FollowRun(window);
  EXPECT_TRUE(Has(lines, "Axes    \t03"));
  EXPECT_FALSE(Has(lines, "230 Login successful."));
}

TEST_F(WholeLadder, The_window_does_not_close_until_it_has_ended) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well") + "delay sysinfo 4000\n");
  const WindowUnderTest window = Start(kAllRungs);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return HasCall("nx_getoptions1"); }));
  window.Close();
  EXPECT_EQ(FollowRun(window), Joined({kPing, kLibraryTest, kListing}));
  window.Settle();
  EXPECT_TRUE(Program().HasWindow("Form1"));
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(WholeLadder, It_can_be_repeated_and_its_address_is_kept_once) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartOnPage("-X 10 -FTP_USER cnc -FTP_PASSWD terces");
  window.SelectTab(ID_tabMode, 0);
  ClickAndFollow(window, ID_cmdAllTest);
  ClickAndFollow(window, ID_cmdAllTest);
  const Lines addresses = window.ComboItems(ID_cmbIPAddr);
  EXPECT_EQ(std::count(addresses.begin(), addresses.end(), kNearAddress), 1);
}

/// A PC with all libraries but the CNC library.
class LadderWithoutLibrary : public LadderTest<LadderWithoutLibrary> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = LadderTest::Options();
    libraries_ = std::make_unique<TempDirectory>(options.cacheFolder);
    for (const char* name : {"ObryConfIO.dll", "txcodec.dll", "SvcKit.dll", "k7api.dll"})
      std::filesystem::copy_file(options.programPath + "/" + name, libraries_->Path() + "/" + name);
    options.programPath = libraries_->Path();
    return options;
  }
  static void TearDownTestSuite() {
    LadderTest::TearDownTestSuite();
    libraries_.reset();
  }

 private:
  static inline std::unique_ptr<TempDirectory> libraries_;
};

TEST_F(LadderWithoutLibrary, Counts_the_library_test_as_passed) {
  const auto files = ServeFiles();
  EXPECT_EQ(RunAtStart(kAllRungs), Joined({kPing, kListing}));
}

}  // namespace
}  // namespace tarvik::lab
