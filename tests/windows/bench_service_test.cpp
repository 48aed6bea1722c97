#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kService[] = "K7Server";
constexpr char kStopped[] = "1";
constexpr char kStartPending[] = "2";
constexpr char kStopPending[] = "3";
constexpr char kRunning[] = "4";
constexpr char kOnDemand[] = "3";

const std::string kNoService = std::to_string(static_cast<int32_t>(0x80000124));
const std::string kAccessDenied = "5";

class BenchService : public BenchTest {
 protected:
  /// Installs the K7 server as a service with this scenario.
  void Install(const std::string& scenario) {
    const std::string program = Folder() + "/K7Server.exe";
    std::filesystem::copy_file(Bench() + "/K7Server.exe", program);
    std::ofstream(Folder() + "/K7Server.scenario") << "port 0\n" << scenario;
    ASSERT_EQ(Call({"QSetup_InstallService", kService, "K7 server", WindowsPath(program), kOnDemand}).at(0),
              "0");
    installed_ = true;
  }

  /// Ends all programs of the prefix, because a service may ignore the request to stop.
  void TearDown() override {
    if (installed_) Prefix().EndPrograms();
    BenchTest::TearDown();
    if (installed_) RemoveTheService();
  }

  std::string State() {
    const Fields answer = Call({"QSetup_GetServiceStatus", kService});
    EXPECT_EQ(answer.at(0), "0");
    return answer.at(1);
  }

  std::string Start(const std::string& wait = "-1") {
    return Call({"QSetup_StartService", kService, wait}).at(0);
  }
  std::string Stop(const std::string& wait = "-1") {
    return Call({"QSetup_StopService", kService, wait}).at(0);
  }
  std::string Remove() { return Call({"QSetup_RemoveService", kService}).at(0); }

  ::testing::AssertionResult Becomes(const std::string& state) {
    std::string seen;
    const auto reached = [&] { return (seen = State()) == state; };
    if (WaitUntil(std::chrono::seconds(60), reached)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "state " << seen;
  }

 private:
  void RemoveTheService() {
    BenchTest::SetUp();
    Remove();
    BenchTest::TearDown();
  }

  bool installed_ = false;
};

TEST_F(BenchService, Is_installed_started_queried_stopped_and_removed) {
  Install("");
  EXPECT_EQ(State(), kStopped);
  EXPECT_EQ(Start(), "0");
  EXPECT_TRUE(Becomes(kRunning));
  EXPECT_EQ(Stop(), "0");
  EXPECT_TRUE(Becomes(kStopped));
  EXPECT_EQ(Remove(), "0");
  // The service manager deletes a service once its process has ended and all its handles are closed.
  EXPECT_TRUE(WaitUntil(std::chrono::seconds(60), [this] {
    return Call({"QSetup_GetServiceStatus", kService}).at(0) == kNoService;
  }));
  EXPECT_TRUE(Calls().front().starts_with("QSetup_InstallService(\"K7Server\", \"K7 server\", \"Z:\\"));
}

TEST_F(BenchService, A_missing_service_has_its_own_code) {
  EXPECT_EQ(Call({"QSetup_GetServiceStatus", kService}).at(0), kNoService);
  EXPECT_EQ(Start(), kNoService);
  EXPECT_EQ(Stop(), kNoService);
  EXPECT_EQ(Remove(), kNoService);
}

TEST_F(BenchService, Starts_and_stops_slowly) {
  Install("start_takes 4000\nstop_takes 4000\n");
  EXPECT_EQ(Start(), "0");
  EXPECT_EQ(State(), kStartPending);
  EXPECT_TRUE(Becomes(kRunning));
  EXPECT_EQ(Stop(), "0");
  EXPECT_TRUE(Becomes(kStopPending));
  EXPECT_TRUE(Becomes(kStopped));
}

TEST_F(BenchService, A_call_with_a_time_out_waits_for_the_new_state) {
  Install("start_takes 1000\nstop_takes 1000\n");
  EXPECT_EQ(Start("60000"), "0");
  EXPECT_EQ(State(), kRunning);
  EXPECT_EQ(Stop("60000"), "0");
  EXPECT_EQ(State(), kStopped);
}

TEST_F(BenchService, Stays_in_start_pending_on_demand) {
  Install("start_takes forever\n");
  EXPECT_EQ(Start("2000"), "1053");
  EXPECT_EQ(State(), kStartPending);
}

TEST_F(BenchService, Accepts_a_stop_and_keeps_running_on_demand) {
  Install("stop ignored\n");
  EXPECT_EQ(Start("60000"), "0");
  EXPECT_EQ(Stop("1000"), "1053");
  EXPECT_EQ(State(), kRunning);
}

TEST_F(BenchService, Rejects_a_stop_on_demand) {
  Install("stop refused\n");
  EXPECT_EQ(Start("60000"), "0");
  EXPECT_NE(Stop(), "0");
  EXPECT_EQ(State(), kRunning);
}

TEST_F(BenchService, Ends_when_its_scenario_cannot_be_read) {
  Install("stop sometimes\n");
  EXPECT_EQ(Start(), "0");
  EXPECT_TRUE(Becomes(kStopped));
}

TEST_F(BenchService, The_manager_denies_access_on_demand) {
  Install("");
  Set("TARVIK_BENCH_SVCKIT_DENY", "QSetup_StartService");
  EXPECT_EQ(Start(), kAccessDenied);
  EXPECT_EQ(State(), kStopped);
  Set("TARVIK_BENCH_SVCKIT_DENY", "all");
  EXPECT_EQ(Call({"QSetup_GetServiceStatus", kService}).at(0), kAccessDenied);
  EXPECT_EQ(Remove(), kAccessDenied);
}

TEST_F(BenchService, A_call_returns_any_code_on_demand) {
  Set("TARVIK_BENCH_SVCKIT_FAIL", "QSetup_RemoveService=1072 QSetup_StopService=0x80001234");
  EXPECT_EQ(Remove(), "1072");
  EXPECT_EQ(Stop(), std::to_string(static_cast<int32_t>(0x80001234)));
}

}  // namespace
}  // namespace tarvik::lab
