// The general edition's ladder, with the K7 API test between the library test and the FTP listing.

#include "lab/network/ftp_server.h"
#include "lab/network/k7_server.h"
#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

class K7Ladder : public CncTest<K7Ladder> {
 protected:
  void SetUp() override {
    CncTest::SetUp();
    if (!fs::exists(GeneralProgramPath())) GTEST_SKIP() << GeneralProgramPath() << " does not exist";
    if (const auto reason = FtpServer::UnsupportedReason(FtpServer::Product::Vsftpd)) GTEST_SKIP() << *reason;
  }
  void TearDown() override {
    CncTest::TearDown();
    server_.reset();
  }

  /// Starts a K7 server on the PC.
  void ServeK7(const std::string& scenario) {
    const WindowsPc::Options options = PcForTests();
    server_.emplace(Pc(), Net(), options.programPath, options.cacheFolder, scenario);
  }

  static std::unique_ptr<FtpServer> ServeFiles() {
    return std::make_unique<FtpServer>(Net(), Host::Near, FtpServer::Product::Vsftpd,
                                       PcForTests().cacheFolder);
  }

  WindowUnderTest StartGeneral(const std::string& commandLine = {}) {
    StartOnly(commandLine, GeneralProgramPath());
    const WindowUnderTest window = WaitForMainWindow(Program(), Listening());
    boxes_.clear();  // of the start-up
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtPingReqCount, "1");
    window.SetText(ID_txtK7ApiTestCount, "2");
    return window;
  }

 private:
  std::optional<K7ServerProgram> server_;
};

const Lines kLowerRungs = {
    "PING test...",
    "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64",
    "",
    "Get System Information test....",
    "CNC Type\t31iB",
    "M/T     \t M",
    "Serise  \tG301",
    "Version \t10.0",
    "Max Axes\t32",
    "Axes    \t03",
    "",
    "K7Api test....",
};

TEST_F(K7Ladder, All_Test_ends_with_the_K7_test) {
  ServeK7("unit 192.168.1.100 live\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral();
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest),
            Joined({kLowerRungs, {"00001 Live=True", "00002 Live=True"}}));
  EXPECT_TRUE(boxes_.empty());
  EXPECT_TRUE(HasCall(R"(K7_ConnectServer(1, "127.0.0.1") = -1)"));
}

TEST_F(K7Ladder, The_FTP_listing_comes_after_the_K7_test) {
  ServeK7("unit 192.168.1.100 dead\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  const Lines lines = ClickAndFollow(window, ID_cmdAllTest);
  const Lines expected =
      Joined({kLowerRungs,
              {"00001 Live=False", "00002 Live=False", "", "FTP Connect test...", "230 Login successful.",
               "257 \"/\" is the current directory", "", "Name" + std::string(37, ' ') + "Size",
               std::string(45, '-'), "226 Directory send OK."}});
  EXPECT_EQ(lines, expected);
}

TEST_F(K7Ladder, Without_a_K7_server_the_ladder_ends_with_a_message_box) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), kLowerRungs);
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_TRUE(boxes_.front().text.starts_with("Failed to K7_ConnectServer:")) << boxes_.front().text;
  EXPECT_TRUE(boxes_.front().text.ends_with(":hdl=1 [127.0.0.1]")) << boxes_.front().text;
}

TEST_F(K7Ladder, A_unit_unknown_to_the_server_ends_the_ladder) {
  ServeK7("others unknown\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), kLowerRungs);
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_TRUE(boxes_.front().text.starts_with("Failed to K7_CheckReboot:")) << boxes_.front().text;
}

TEST_F(K7Ladder, After_a_failed_library_test_the_K7_test_does_not_run) {
  ServeK7("");
  const WindowUnderTest window = StartGeneral();
  ClickAndFollow(window, ID_cmdAllTest);
  EXPECT_TRUE(HasCall("nx_allochandle3"));
  EXPECT_FALSE(HasCall("K7_"));
}

TEST_F(K7Ladder, A_stop_during_its_cycles_ends_with_their_second_and_skips_the_listing) {
  ServeK7("");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  window.SetText(ID_txtK7ApiTestCount, "60");
  const auto begin = std::chrono::steady_clock::now();
  window.Click(ID_cmdAllTest);
  window.WaitForLine(ID_lstResult, "00001 Live=True", kTestTimeOut);
  window.Click(ID_cmdPing);
  const Lines lines = FollowRun(window);
  // The second after the echo, and the one of the cycle that was stopped.
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
  EXPECT_LT(lines.size(), kLowerRungs.size() + 60);
  EXPECT_TRUE(lines.back().ends_with(" Live=True")) << lines.back();
  EXPECT_TRUE(boxes_.empty());
}

}  // namespace
}  // namespace tarvik::lab
