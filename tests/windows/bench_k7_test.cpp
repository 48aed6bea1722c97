#include <algorithm>

#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kLive[] = "-1";

class BenchK7Api : public BenchTest {
 protected:
  /// Starts the server as an ordinary program.
  void StartServer(const std::string& scenario) {
    std::filesystem::copy_file(Bench() + "/K7Server.exe", Folder() + "/K7Server.exe");
    std::ofstream(Folder() + "/K7Server.scenario") << "port 0\n" << scenario;
    server_ = StartInWindows({Folder() + "/K7Server.exe", "-debug"});
    const std::string listening = "listening on UDP port ";
    const std::string line = server_->ReadLine(std::chrono::seconds(60));
    ASSERT_TRUE(line.starts_with(listening)) << line;
    Set("TARVIK_BENCH_K7_PORT", line.substr(listening.size()));
  }

  void TearDown() override {
    server_.reset();
    BenchTest::TearDown();
  }

  void StopServer() { server_.reset(); }

  std::string Handle() {
    EXPECT_EQ(Call({"K7_WSAStartup"}).at(0), "0");
    const Fields answer = Call({"K7_AllocHandle"});
    EXPECT_EQ(answer.at(0), "0");
    return answer.at(1);
  }

  std::string ConnectedHandle() {
    std::string handle = Handle();
    EXPECT_EQ(Call({"K7_ConnectServer", handle, "127.0.0.1"}), (Fields{"-1", "127.0.0.1"}));
    return handle;
  }

  uint32_t ErrorOf(const std::string& handle) {
    return static_cast<uint32_t>(std::stoll(Call({"K7_GetLastError", handle}).at(1)));
  }

 private:
  std::unique_ptr<Process> server_;
};

TEST_F(BenchK7Api, Units_are_live_or_dead_and_their_state_is_returned) {
  StartServer("unit 192.168.1.100 live\nunit 192.168.1.101 dead\n");
  const std::string handle = ConnectedHandle();
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "192.168.1.100", "0", "0"}),
            (Fields{"-1", "192.168.1.100", "1", "1", "0", kLive}));
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "192.168.1.100", "1", "1"}),
            (Fields{"-1", "192.168.1.100", "1", "2", "0", kLive}));
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "192.168.1.101", "0", "0"}).at(5), "0");
  EXPECT_EQ(Call({"K7_FreeHandle", handle}).at(0), "0");
  EXPECT_EQ(Call({"K7_WSACleanup"}).at(0), "0");
  const Fields calls = Calls();
  EXPECT_NE(std::find(calls.begin(), calls.end(),
                      "K7_CheckReboot2(" + handle + ", \"192.168.1.100\", 1, 1) = -1 open=1"),
            calls.end());
  EXPECT_EQ(calls.at(calls.size() - 2), "K7_FreeHandle(" + handle + ") = 0 open=0");
}

TEST_F(BenchK7Api, The_next_check_reports_a_restart) {
  StartServer("unit a reboots\n");
  const std::string handle = ConnectedHandle();
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "a", "0", "0"}), (Fields{"-1", "a", "1", "1", "0", kLive}));
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "a", "1", "1"}), (Fields{"-1", "a", "2", "2", "1", kLive}));
}

TEST_F(BenchK7Api, An_unknown_unit_is_an_error) {
  StartServer("others unknown\n");
  const std::string handle = ConnectedHandle();
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "192.168.1.100", "0", "0"}).at(0), "0");
  EXPECT_EQ(ErrorOf(handle), 0x1009F004U);
}

TEST_F(BenchK7Api, A_stopped_server_is_an_error) {
  StartServer("");
  const std::string handle = ConnectedHandle();
  StopServer();
  EXPECT_EQ(Call({"K7_CheckReboot2", handle, "a", "0", "0"}).at(0), "0");
  EXPECT_EQ(ErrorOf(handle), 0x1009F003U);
  EXPECT_EQ(Call({"K7_ConnectServer", handle, "127.0.0.1"}).at(0), "0");
  EXPECT_EQ(ErrorOf(handle), 0x1009F101U);
}

TEST_F(BenchK7Api, A_server_that_does_not_answer_counts_as_none) {
  StartServer("silent\n");
  const std::string handle = Handle();
  EXPECT_EQ(Call({"K7_ConnectServer", handle, "127.0.0.1"}).at(0), "0");
  EXPECT_EQ(ErrorOf(handle), 0x1009F101U);
}

TEST_F(BenchK7Api, A_handle_that_is_not_open_is_invalid) {
  EXPECT_EQ(Call({"K7_FreeHandle", "9"}).at(0), "-1");
  EXPECT_EQ(Call({"K7_ConnectServer", "9", "127.0.0.1"}).at(0), "0");
  EXPECT_EQ(ErrorOf("9"), 0x1009F000U);
}

TEST_F(BenchK7Api, Fails_on_demand_with_both_codes) {
  Set("TARVIK_BENCH_K7_FAIL", "K7_FreeHandle=1 K7_AllocHandle=0x1009F002:8");
  EXPECT_NE(Call({"K7_AllocHandle"}).at(0), "0");
  EXPECT_EQ(Call({"K7_GetLastError", "0"}), (Fields{"0", std::to_string(0x1009F002), "8"}));
}

TEST_F(BenchK7Api, Returns_handle_0_and_overwritten_texts_on_demand) {
  Set("TARVIK_BENCH_K7_LIE", "handle0 rewritten");
  EXPECT_EQ(Call({"K7_AllocHandle"}), (Fields{"0", "0"}));
  EXPECT_EQ(Call({"K7_ConnectServer", "9", "127.0.0.1"}).at(1), "rewritten");
  Set("TARVIK_BENCH_K7_LIE", "unended");
  EXPECT_EQ(Call({"K7_ConnectServer", "9", "127.0.0.1"}).at(1), std::string(256, 'W'));
}

}  // namespace
}  // namespace tarvik::lab
