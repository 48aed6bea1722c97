// The K7 API test of the general edition: with a K7 server, and with a library that fails or violates its
// interface.

#include "lab/network/k7_server.h"
#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

constexpr int kK7ApiTab = 2;

template <typename Suite>
class K7ApiPage : public CncTest<Suite> {
  using Base = CncTest<Suite>;

 protected:
  using Lines = std::vector<std::string>;

  void SetUp() override {
    Base::SetUp();
    if (!this->IsSkipped() && !std::filesystem::exists(GeneralProgramPath()))
      GTEST_SKIP() << GeneralProgramPath() << " does not exist";
  }
  void TearDown() override {
    Base::TearDown();
    server_.reset();
  }

  /// Starts a K7 server on the PC as an ordinary program.
  void ServeK7(const std::string& scenario) {
    const WindowsPc::Options options = PcForTests();
    server_.emplace(this->Pc(), this->Net(), options.programPath, options.cacheFolder, scenario);
  }

  WindowUnderTest StartOnK7Page(const std::string& count = "2") {
    this->StartOnly({}, GeneralProgramPath());
    WindowUnderTest window = WaitForMainWindow(this->Program(), this->Listening());
    this->boxes_.clear();  // of the start-up
    window.SelectTab(ID_tabMode, kK7ApiTab);
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtK7ApiTestCount, count);
    window.EmptyList(ID_lstResult);
    this->ForgetCalls();
    return window;
  }

  /// Follows a started test to its end and answers its message boxes. Returns the list.
  Lines FollowTest(const WindowUnderTest& window) {
    const bool ended = WaitUntil(Base::kTestTimeOut, [&] {
      if (this->Program().HasBox()) {
        this->boxes_.push_back(this->Program().WaitForBox());
        this->Program().Answer(this->boxes_.back(), BoxButton::Ok);
      }
      // Its last library call, then the restored caption.
      return this->HasCall("K7_WSACleanup()") && window.Text(ID_cmdK7Api) == "&Test" &&
             !this->Program().HasBox();
    });
    if (!ended) throw LabError("The K7 API test does not end");
    return window.Lines(ID_lstResult);
  }
  Lines Test() {
    const WindowUnderTest window = StartOnK7Page();
    window.Click(ID_cmdK7Api);
    return FollowTest(window);
  }

  /// The text of the message box, which must be the only one.
  std::string BoxText() {
    EXPECT_EQ(this->boxes_.size(), 1U);
    return this->boxes_.empty() ? std::string() : this->boxes_.front().text;
  }

 private:
  std::optional<K7ServerProgram> server_;
};

const std::vector<std::string> kBegun = {"", "K7Api test...."};

class K7ApiButton : public K7ApiPage<K7ApiButton> {};

TEST_F(K7ApiButton, Checks_once_a_second_and_passes_the_last_state_on) {
  ServeK7("unit 192.168.1.100 live\n");
  EXPECT_EQ(Test(), (Lines{"", "K7Api test....", "00001 Live=True", "00002 Live=True"}));
  EXPECT_TRUE(boxes_.empty());
  EXPECT_EQ(Calls(), (Lines{"K7_WSAStartup() = 0 open=0", "K7_AllocHandle(1) = 0 open=1",
                            R"(K7_ConnectServer(1, "127.0.0.1") = -1 open=1)",
                            R"(K7_CheckReboot2(1, "192.168.1.100", 0, 0) = -1 open=1)",
                            R"(K7_CheckReboot2(1, "192.168.1.100", 1, 1) = -1 open=1)",
                            "K7_FreeHandle(1) = 0 open=0", "K7_WSACleanup() = 0 open=0"}));
}

TEST_F(K7ApiButton, Shows_a_unit_that_is_not_live) {
  ServeK7("unit 192.168.1.100 dead\n");
  EXPECT_EQ(Test(), (Lines{"", "K7Api test....", "00001 Live=False", "00002 Live=False"}));
}

TEST_F(K7ApiButton, Also_stops_the_test) {
  ServeK7("unit 192.168.1.100 live\n");
  const WindowUnderTest window = StartOnK7Page("60");
  window.Click(ID_cmdK7Api);
  window.WaitForLine(ID_lstResult, "00001 Live=True", kTestTimeOut);
  EXPECT_EQ(window.Text(ID_cmdK7Api), "&Stop");
  window.Click(ID_cmdK7Api);
  const Lines lines = FollowTest(window);
  EXPECT_LT(lines.size(), kBegun.size() + 60);
  EXPECT_TRUE(lines.back().ends_with(" Live=True")) << lines.back();
  EXPECT_TRUE(boxes_.empty());
}

// A library that fails

template <typename Suite>
class FailingK7 : public K7ApiPage<Suite> {
 public:
  static WindowsPc::Options Options() {
    return CncTest<Suite>::OptionsWith({{"TARVIK_BENCH_K7_FAIL", Suite::kFailure}});
  }
};

class K7WithoutHandles : public FailingK7<K7WithoutHandles> {
 public:
  static constexpr char kFailure[] = "K7_AllocHandle=0x1009F002:8";
};

TEST_F(K7WithoutHandles, Are_reported_with_the_system_error_and_nothing_is_freed) {
  EXPECT_EQ(Test(), kBegun);
  EXPECT_EQ(BoxText(), "Failed to K7_AllocHandle:No empty handle at all:SystemError=8:hdl=0");
  EXPECT_TRUE(HasCall("K7_GetLastError(0)"));
  EXPECT_FALSE(HasCall("K7_ConnectServer"));
  EXPECT_FALSE(HasCall("K7_FreeHandle"));
}

class K7WithoutServer : public FailingK7<K7WithoutServer> {
 public:
  static constexpr char kFailure[] = "K7_ConnectServer=0x1009F103:0x2AF9";
};

TEST_F(K7WithoutServer, Is_reported_with_its_name_and_the_handle_is_freed) {
  EXPECT_EQ(Test(), kBegun);
  EXPECT_EQ(BoxText(),
            "Failed to K7_ConnectServer:K7 server is not running:SystemError=2AF9:hdl=1 [127.0.0.1]");
  EXPECT_FALSE(HasCall("K7_CheckReboot2"));
  EXPECT_TRUE(HasCall("K7_FreeHandle(1)"));
}

class K7CheckThatFails : public FailingK7<K7CheckThatFails> {
 public:
  static constexpr char kFailure[] = "K7_CheckReboot2=0x1009F004:0xFFFFFFFF";
};

TEST_F(K7CheckThatFails, Ends_the_test_and_frees_the_handle) {
  ServeK7("unit 192.168.1.100 live\n");
  EXPECT_EQ(Test(), kBegun);
  EXPECT_EQ(BoxText(),
            "Failed to K7_CheckReboot:The required unit is not recognized by K7 Server:"
            "SystemError=FFFFFFFF:hdl=1");
  EXPECT_TRUE(HasCall("K7_FreeHandle(1)"));
}

// A library that violates its interface

template <typename Suite>
class LyingK7 : public K7ApiPage<Suite> {
 public:
  static WindowsPc::Options Options() {
    return CncTest<Suite>::OptionsWith({{"TARVIK_BENCH_K7_LIE", Suite::kLie}});
  }
};

class K7HandleZero : public LyingK7<K7HandleZero> {
 public:
  static constexpr char kLie[] = "handle0";
};

TEST_F(K7HandleZero, Is_used_as_returned_and_not_freed) {
  ServeK7("unit 192.168.1.100 live\n");
  EXPECT_EQ(Test(), kBegun);
  EXPECT_EQ(BoxText(), "Failed to K7_ConnectServer:Invalid handle:SystemError=0:hdl=0 [127.0.0.1]");
  EXPECT_FALSE(HasCall("K7_FreeHandle"));
}

class K7RewrittenTexts : public LyingK7<K7RewrittenTexts> {
 public:
  static constexpr char kLie[] = "rewritten";
};

TEST_F(K7RewrittenTexts, Are_passed_to_the_next_call) {
  ServeK7("others live\n");
  EXPECT_EQ(Test(), (Lines{"", "K7Api test....", "00001 Live=True", "00002 Live=True"}));
  EXPECT_TRUE(HasCall(R"(K7_CheckReboot2(1, "192.168.1.100", 0, 0))"));
  EXPECT_TRUE(HasCall(R"(K7_CheckReboot2(1, "rewritten", )"));
}

class K7UnendedTexts : public LyingK7<K7UnendedTexts> {
 public:
  static constexpr char kLie[] = "unended";
};

TEST_F(K7UnendedTexts, Are_read_up_to_their_256_bytes) {
  ServeK7("others live\n");
  EXPECT_EQ(Test(), (Lines{"", "K7Api test....", "00001 Live=True", "00002 Live=True"}));
  EXPECT_TRUE(HasCall("K7_CheckReboot2(1, \"" + std::string(256, 'W') + "\", "));
}

}  // namespace
}  // namespace tarvik::lab
