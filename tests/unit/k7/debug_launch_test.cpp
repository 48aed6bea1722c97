#include "k7/debug_launch.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_processes.h"
#include "tests/unit/k7/fake_service.h"

namespace tarvik::test {
namespace {

class DebugLaunchTest : public testing::TestWithParam<LanguageMode> {
 protected:
  void Launch() {
    journal.clear();
    pc.pump.onEvents = [this] { journal.emplace_back("events"); };
    pc.boxes.onShow = [this] { journal.emplace_back("box"); };
    LaunchK7ServerDebug(pc.context, *pc.service, processes,
                        [this] { journal.emplace_back("focus on Stop"); });
  }

  void ExpectWarning() {
    EXPECT_EQ(pc.Box().text,
              GetParam() == kLanguageFile ? L"(116)"
              : GetParam() == 0
                  ? L"このコマンドを実行するためには、'Stop' ボタンでK7サーバを停止させる必要があります。"
                  : L"Before execute this command, you have to terminate the K7 Service by 'Stop' button.");
    EXPECT_EQ(pc.Box().icon, report::BoxIcon::Exclamation);
    EXPECT_EQ(pc.Box().title, L"");
    EXPECT_EQ(journal, (std::vector<std::string>{"focus on Stop", "events", "box"}));
    EXPECT_TRUE(processes.commandLines.empty());
  }

  FakeService pc{GetParam()};
  FakeProcesses processes;
  std::vector<std::string> journal;  ///< of the latest launch
};

INSTANTIATE_TEST_SUITE_P(, DebugLaunchTest, testing::Values(-1, 0, 1), [](const auto& mode) -> std::string {
  return mode.param == -1 ? "LanguageFile" : mode.param == 0 ? "Japanese" : "English";
});

TEST_P(DebugLaunchTest, The_server_is_started_when_the_service_is_stopped) {
  pc.library.status = SvcUtl::pSvcCondStopped;
  Launch();
  EXPECT_EQ(processes.commandLines, std::vector<std::wstring>{L"K7Server -debug"});
  EXPECT_EQ(processes.windows, std::vector<StartWindow>{StartWindow::NormalFocused});
  EXPECT_TRUE(pc.boxes.boxes.empty());
  EXPECT_TRUE(journal.empty());
}

TEST_P(DebugLaunchTest, A_failed_start_is_reported_without_an_icon) {
  pc.library.status = SvcUtl::pSvcCondStopped;
  processes.processId = 0;
  Launch();
  EXPECT_EQ(pc.Box().text, L"Error in Shell(K7Server -debug)");
  EXPECT_EQ(pc.Box().icon, report::BoxIcon::None);
}

TEST_P(DebugLaunchTest, A_service_that_is_not_stopped_prevents_the_start) {
  for (const int32_t state :
       {SvcUtl::pSvcCondStartPending, SvcUtl::pSvcCondStopPending, SvcUtl::pSvcCondRunning, int32_t{7}}) {
    pc.library.status = state;
    pc.boxes.boxes.clear();
    Launch();
    ExpectWarning();
  }
}

TEST_P(DebugLaunchTest, A_failed_query_counts_as_a_service_that_is_not_stopped) {
  pc.library.status = SvcUtl::pSvcCondStopped;
  pc.library.queryResult = 5;
  Launch();
  ExpectWarning();
}

TEST_P(DebugLaunchTest, A_missing_service_counts_as_not_stopped) {
  pc.library.queryResult = FakeSvcKit::kNoService;
  Launch();
  ExpectWarning();
}

TEST_P(DebugLaunchTest, The_setting_for_error_boxes_is_not_changed) {
  pc.service->pDispErrMsgBox(true);
  pc.library.queryResult = 5;
  Launch();
  EXPECT_EQ(pc.boxes.boxes.size(), 2U);
  Launch();
  EXPECT_EQ(pc.boxes.boxes.size(), 4U);
}

}  // namespace
}  // namespace tarvik::test
