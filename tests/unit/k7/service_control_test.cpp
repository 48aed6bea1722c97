#include "k7/service_control.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/unit/k7/fake_service.h"

namespace tarvik::test {
namespace {

using Texts3 = std::vector<std::wstring>;

constexpr int32_t kStopped = SvcUtl::pSvcCondStopped;
constexpr int32_t kStartPending = SvcUtl::pSvcCondStartPending;
constexpr int32_t kStopPending = SvcUtl::pSvcCondStopPending;
constexpr int32_t kRunning = SvcUtl::pSvcCondRunning;

/// A message in each language mode.
struct Said {
  const wchar_t* file;
  const wchar_t* japanese;
  const wchar_t* english;

  std::wstring In(LanguageMode mode) const {
    return mode == kLanguageFile ? file : mode == 0 ? japanese : english;
  }
};

constexpr Said kAlreadyRunning{L"(160)", L"すでに起動しています", L"Already running"};
constexpr Said kStarting{L"(161)", L"K7サービスを再起動中です...", L"Starting K7 Service ..."};
constexpr Said kStarted{L"(162)", L"K7サービスを起動しました。", L"The K7 Service Started."};
constexpr Said kCannotStart{L"(163)", L"K7サービスを起動できませんでした。", L"Cannot start K7 Service."};
constexpr Said kAlreadyStopped{L"(164)", L"すでに停止しています", L"Already stopped"};
constexpr Said kConfirm{
    L"(165)",
    L"このコマンドを実行すると、NEXAL2/Ethernetで接続しているすべてのNCは、電源OFFと認識されます。\r\n"
    L"実行しますか？",
    L"When this command is executed, all of CNC which connected by NEXAL2/Ethernet are recognized as power "
    L"OFF.\r\n"
    L"Continue ?"};
constexpr Said kStoppedNow{L"(166)",
                           L"K7サービスを停止しました。この画面を終了する前に、必ず 'Start' "
                           L"ボタンでK7サービスを再起動してください。",
                           L"The K7 Service stopped. You have to re-start the K7 Service by 'Start' button "
                           L"before close this screen."};
constexpr Said kCannotStop{L"(167)", L"K7サービスを停止できませんでした。", L"Cannot stop K7 Service"};

class K7ServiceTest : public testing::TestWithParam<LanguageMode> {
 protected:
  void ExpectSaid(const std::vector<Said>& said) {
    Texts3 expected;
    for (const Said& each : said) expected.push_back(each.In(GetParam()));
    EXPECT_EQ(pc.boxes.Texts(), expected);
    for (const FakeBoxes::Box& box : pc.boxes.boxes) EXPECT_EQ(box.title, L"");
  }

  /// Error boxes are on during a command and off after it.
  void ExpectBoxesOff() {
    pc.library.queryResult = 5;
    const size_t before = pc.boxes.boxes.size();
    int32_t status = 0;
    pc.service->mGetServiceStatus(L"Spooler", status);
    EXPECT_EQ(pc.boxes.boxes.size(), before);
  }

  /// From now on the journal records the library's calls, the boxes, the pauses and the states shown, in
  /// order.
  void KeepJournal() {
    pc.boxes.onShow = [this] { Note("box"); };
    pc.pump.onEvents = [this] {
      Note(pc.pump.sleeps.size() == sleeps_ ? "events" : "sleep");
      sleeps_ = pc.pump.sleeps.size();
    };
  }
  /// The journal up to now.
  const std::vector<std::string>& Journal() {
    for (; calls_ < pc.library.calls.size(); ++calls_) {
      const std::string& call = pc.library.calls[calls_];
      journal_.push_back(call.substr(0, call.find(' ')));
    }
    for (; shown_ < pc.shown.size(); ++shown_)
      journal_.push_back("state " + std::to_string(pc.shown[shown_]));
    return journal_;
  }

  FakeService pc{GetParam()};

 private:
  void Note(const char* event) {
    Journal();
    journal_.emplace_back(event);
  }

  std::vector<std::string> journal_;
  size_t calls_ = 0;
  size_t shown_ = 0;
  size_t sleeps_ = 0;
};

INSTANTIATE_TEST_SUITE_P(, K7ServiceTest, testing::Values(-1, 0, 1), [](const auto& mode) -> std::string {
  return mode.param == -1 ? "LanguageFile" : mode.param == 0 ? "Japanese" : "English";
});

// The state

TEST_P(K7ServiceTest, A_refresh_shows_the_state) {
  for (const int32_t state : {kStopped, kStartPending, kStopPending, kRunning}) {
    pc.library.status = state;
    pc.Refresh();
    EXPECT_EQ(pc.shown.back(), state);
  }
  EXPECT_EQ(pc.library.calls.front(), "Query K7Server -1");
  EXPECT_TRUE(pc.boxes.boxes.empty());
}

TEST_P(K7ServiceTest, A_refresh_reports_a_failed_query_and_shows_no_state) {
  pc.library.queryResult = 5;
  pc.Refresh();
  EXPECT_EQ(pc.Box().text, GetParam() == 0 ? L"K7Server の動作状態の確認に失敗しました Err=0x5"
                                           : L"Can't get status information of \"K7Server\". Err=0x5");
  EXPECT_TRUE(pc.shown.empty());
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, A_refresh_switches_error_boxes_off_again_even_when_the_library_throws) {
  pc.library.missing = true;
  EXPECT_THROW(pc.Refresh(), RuntimeError);
  pc.library.missing = false;
  ExpectBoxesOff();
}

// Start

TEST_P(K7ServiceTest, Start_only_reports_a_running_service) {
  pc.Start();
  ExpectSaid({kAlreadyRunning});
  EXPECT_EQ(pc.library.calls.size(), 1U);
  EXPECT_TRUE(pc.shown.empty());
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, Start_waits_until_the_service_is_running) {
  pc.library.status = kStopped;
  pc.library.slowness = 3;
  pc.library.pending = kStartPending;
  KeepJournal();
  pc.Start();
  ExpectSaid({kStarting, kStarted});
  EXPECT_EQ(pc.library.Count("Start K7Server -1"), 1);
  EXPECT_EQ(pc.shown, std::vector<int32_t>{kRunning});
  EXPECT_EQ(pc.pump.sleeps, (std::vector<uint32_t>{250, 250}));
  EXPECT_EQ(Journal(),
            (std::vector<std::string>{"Query", "Start", "box", "events",  // the box is closed first
                                      "Query", "events", "sleep", "events", "Query", "events", "sleep",
                                      "events", "Query", "state 4", "box"}));
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, A_start_seen_at_the_40th_poll_succeeds) {
  pc.library.status = kStopped;
  pc.library.slowness = 40;
  pc.Start();
  ExpectSaid({kStarting, kStarted});
  EXPECT_EQ(pc.pump.now, 39U * 250);
}

TEST_P(K7ServiceTest, A_start_that_needs_a_41st_poll_fails) {
  pc.library.status = kStopped;
  pc.library.slowness = 41;
  pc.Start();
  ExpectSaid({kStarting, kCannotStart});
  EXPECT_EQ(pc.library.Count("Query"), 41);  // one before the start
  EXPECT_EQ(pc.pump.now, 40U * 250);
  EXPECT_TRUE(pc.shown.empty());
}

TEST_P(K7ServiceTest, A_stop_request_of_a_run_does_not_shorten_the_polling) {
  pc.boxes.answerYes = true;
  pc.library.slowness = 40;
  pc.pump.stop = true;
  pc.Stop();
  pc.Start();
  ExpectSaid({kConfirm, kStoppedNow, kStarting, kStarted});
  EXPECT_EQ(pc.pump.now, 2 * 39U * 250);
}

TEST_P(K7ServiceTest, The_end_of_the_program_ends_the_polling) {
  pc.library.status = kStopped;
  pc.library.slowness = 41;
  pc.pump.ending = true;
  pc.Start();
  EXPECT_EQ(pc.pump.now, 0U);
}

TEST_P(K7ServiceTest, Start_is_tried_in_a_pending_state) {
  for (const int32_t state : {kStartPending, kStopPending}) {
    pc.library.status = state;
    pc.boxes.boxes.clear();
    pc.Start();
    ExpectSaid({kStarting, kStarted});
  }
}

TEST_P(K7ServiceTest, Start_is_tried_when_the_query_fails_and_a_box_reports_every_failure) {
  pc.library.queryResult = 5;
  pc.Start();
  ASSERT_EQ(pc.boxes.boxes.size(), 1U + 1U + 40U + 1U);
  EXPECT_EQ(pc.boxes.boxes[1].text, kStarting.In(GetParam()));
  EXPECT_EQ(pc.boxes.boxes.back().text, kCannotStart.In(GetParam()));
  EXPECT_EQ(pc.library.Count("Start"), 1);
}

TEST_P(K7ServiceTest, The_state_is_polled_even_if_the_library_rejects_the_start) {
  pc.library.status = kStopped;
  pc.library.startResult = 5;
  pc.Start();
  ASSERT_EQ(pc.boxes.boxes.size(), 3U);
  EXPECT_EQ(pc.boxes.boxes[0].text, GetParam() == 0 ? L"K7Server の開始に失敗しました Err=0x5"
                                                    : L"Can't Start \"K7Server\". Err=0x5");
  EXPECT_EQ(pc.boxes.boxes[0].icon, report::BoxIcon::Exclamation);
  EXPECT_EQ(pc.boxes.boxes[2].text, kCannotStart.In(GetParam()));
  EXPECT_EQ(pc.boxes.boxes[2].icon, report::BoxIcon::None);
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, The_start_of_a_missing_service_fails) {
  pc.library.queryResult = pc.library.startResult = FakeSvcKit::kNoService;
  pc.library.status = kRunning;
  pc.Start();
  ASSERT_EQ(pc.boxes.boxes.size(), 3U);
  EXPECT_EQ(pc.boxes.boxes[2].text, kCannotStart.In(GetParam()));
  EXPECT_TRUE(pc.shown.empty());
}

TEST_P(K7ServiceTest, Start_switches_error_boxes_off_again_when_the_library_throws) {
  pc.library.status = kStopped;
  pc.library.onQuery = [this] { pc.library.missing = true; };
  EXPECT_THROW(pc.Start(), RuntimeError);
  pc.library.onQuery = nullptr;
  pc.library.missing = false;
  ExpectBoxesOff();
}

// Stop

TEST_P(K7ServiceTest, Stop_only_reports_a_stopped_service) {
  pc.library.status = kStopped;
  pc.Stop();
  ExpectSaid({kAlreadyStopped});
  EXPECT_EQ(pc.library.calls.size(), 1U);
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, Stop_asks_with_No_as_the_default) {
  pc.Stop();
  ExpectSaid({kConfirm});
  EXPECT_TRUE(pc.Box().asksYesNo);
  EXPECT_TRUE(pc.Box().defaultIsNo);
  EXPECT_EQ(pc.Box().icon, report::BoxIcon::Exclamation);
}

TEST_P(K7ServiceTest, A_declined_stop_does_nothing) {
  pc.Stop();
  EXPECT_EQ(pc.library.Count("Stop"), 0);
  EXPECT_EQ(pc.boxes.boxes.size(), 1U);
  EXPECT_TRUE(pc.pump.sleeps.empty());
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, Stop_waits_until_the_service_is_stopped) {
  pc.boxes.answerYes = true;
  pc.library.slowness = 2;
  pc.library.pending = kStopPending;
  KeepJournal();
  pc.Stop();
  ExpectSaid({kConfirm, kStoppedNow});
  EXPECT_EQ(pc.library.Count("Stop K7Server -1"), 1);
  EXPECT_EQ(pc.shown, std::vector<int32_t>{kStopped});
  EXPECT_EQ(pc.pump.sleeps, std::vector<uint32_t>{250});
  EXPECT_EQ(Journal(),
            (std::vector<std::string>{"Query", "box", "Stop", "events",  // the box is the question
                                      "Query", "events", "sleep", "events", "Query", "state 1", "box"}));
  ExpectBoxesOff();
}

TEST_P(K7ServiceTest, A_stop_seen_at_the_40th_poll_succeeds) {
  pc.boxes.answerYes = true;
  pc.library.slowness = 40;
  pc.Stop();
  ExpectSaid({kConfirm, kStoppedNow});
}

TEST_P(K7ServiceTest, A_stop_that_needs_a_41st_poll_fails) {
  pc.boxes.answerYes = true;
  pc.library.slowness = 41;
  pc.Stop();
  ExpectSaid({kConfirm, kCannotStop});
  EXPECT_EQ(pc.pump.now, 40U * 250);
  EXPECT_TRUE(pc.shown.empty());
}

TEST_P(K7ServiceTest, Stop_is_tried_in_a_pending_state) {
  pc.boxes.answerYes = true;
  for (const int32_t state : {kStartPending, kStopPending}) {
    pc.library.status = state;
    pc.boxes.boxes.clear();
    pc.Stop();
    ExpectSaid({kConfirm, kStoppedNow});
  }
}

TEST_P(K7ServiceTest, Stop_is_tried_when_the_query_fails) {
  pc.boxes.answerYes = true;
  pc.library.queryResult = 5;
  pc.Stop();
  ASSERT_EQ(pc.boxes.boxes.size(), 1U + 1U + 40U + 1U);
  EXPECT_TRUE(pc.boxes.boxes[1].asksYesNo);
  EXPECT_EQ(pc.boxes.boxes.back().text, kCannotStop.In(GetParam()));
}

TEST_P(K7ServiceTest, The_state_is_polled_even_if_the_library_rejects_the_stop) {
  pc.boxes.answerYes = true;
  pc.library.stopResult = 1052;
  pc.Stop();
  ASSERT_EQ(pc.boxes.boxes.size(), 3U);
  EXPECT_EQ(pc.boxes.boxes[1].text, GetParam() == 0 ? L"K7Server の停止に失敗しました Err=0x41C"
                                                    : L"Can't stop \"K7Server\". Err=0x41C");
  EXPECT_EQ(pc.boxes.boxes[2].text, kCannotStop.In(GetParam()));
}

}  // namespace
}  // namespace tarvik::test
