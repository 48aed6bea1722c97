// The ladder with the K7 API test between the library test and the FTP listing.

#include "lab/ftp_server.h"
#include "lab/k7_server.h"
#include "tests/lab/cnc_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

class K7Ladder : public CncTest<K7Ladder> {
 protected:
  void SetUp() override {
    CncTest::SetUp();
    if (!fs::exists(GeneralProgramPath())) GTEST_SKIP() << "there is no " << GeneralProgramPath();
    if (const auto reason = FtpServer::UnsupportedReason(FtpServer::Product::Vsftpd); !reason.empty())
      GTEST_SKIP() << reason;
  }
  void TearDown() override {
    CncTest::TearDown();
    server_.reset();
  }

  /// A K7 server on the PC, an ordinary program.
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
    boxes_.clear();  // those of its start are not the ladder's
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtPingReqCount, "1");
    window.SetText(ID_txtK7ApiTestCount, "2");
    return window;
  }

 private:
  std::optional<K7ServerProgram> server_;
};

const std::vector<std::string> kLowerRungs = {
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

std::vector<std::string> Behind(std::vector<std::string> lines, const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

TEST_F(K7Ladder, All_Test_ends_with_the_K7_test) {
  ServeK7("unit 192.168.1.100 live\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral();
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest),
            Behind(kLowerRungs, {"00001 Live=True", "00002 Live=True"}));
  EXPECT_TRUE(boxes_.empty());
  EXPECT_TRUE(HasCall(R"(K7_ConnectServer(1, "127.0.0.1") = -1)"));
}

TEST_F(K7Ladder, The_listing_is_the_rung_above_it) {
  ServeK7("unit 192.168.1.100 dead\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  const Lines lines = ClickAndFollow(window, ID_cmdAllTest);
  const Lines expected = Behind(
      kLowerRungs, {"00001 Live=False", "00002 Live=False", "", "FTP Connect test...",
                    "230 Login successful.", "257 \"/\" is the current directory", "",
                    "Name" + std::string(37, ' ') + "Size", std::string(45, '-'), "226 Directory send OK."});
  EXPECT_EQ(lines, expected);
}

TEST_F(K7Ladder, Without_a_K7_server_the_ladder_ends_with_its_box) {
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), kLowerRungs);
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_TRUE(boxes_.front().text.starts_with("Failed to K7_ConnectServer:")) << boxes_.front().text;
  EXPECT_TRUE(boxes_.front().text.ends_with(":hdl=1 [127.0.0.1]")) << boxes_.front().text;
}

TEST_F(K7Ladder, A_unit_that_the_server_does_not_know_ends_the_ladder) {
  ServeK7("others unknown\n");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  EXPECT_EQ(ClickAndFollow(window, ID_cmdAllTest), kLowerRungs);
  ASSERT_EQ(boxes_.size(), 1U);
  EXPECT_TRUE(boxes_.front().text.starts_with("Failed to K7_CheckReboot:")) << boxes_.front().text;
}

TEST_F(K7Ladder, A_library_test_that_fails_leaves_it_out) {
  ServeK7("");
  const WindowUnderTest window = StartGeneral();
  ClickAndFollow(window, ID_cmdAllTest);
  EXPECT_TRUE(HasCall("nx_allochandle3"));
  EXPECT_FALSE(HasCall("K7_"));
}

TEST_F(K7Ladder, A_stop_among_its_cycles_leaves_the_listing_out) {
  ServeK7("");
  const auto files = ServeFiles();
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartGeneral("-X 8");
  window.SetText(ID_txtK7ApiTestCount, "60");
  window.Click(ID_cmdAllTest);
  window.WaitForLine(ID_lstResult, "00001 Live=True", kLongestTest);
  window.Click(ID_cmdPing);
  // Not by what comes behind the click: the stop may let no line come.
  const Lines lines = FollowRunAtStart(window);
  EXPECT_LT(lines.size(), kLowerRungs.size() + 60);
  EXPECT_TRUE(lines.back().ends_with(" Live=True")) << lines.back();
  EXPECT_TRUE(boxes_.empty());
}

}  // namespace
}  // namespace tarvik::lab
