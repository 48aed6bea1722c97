#include <gtest/gtest.h>

#include "tests/unit/k7/fake_service.h"

namespace tarvik::test {
namespace {

using Calls = std::vector<std::string>;

constexpr LanguageMode kJapaneseMode = 0;
constexpr LanguageMode kEnglishMode = 1;
constexpr int32_t kTolerated = FakeSvcKit::kNoService;
constexpr auto kFailed = static_cast<int32_t>(0x8000ABCD);

/// Title, text and code of a failure.
struct Expected {
  const wchar_t* title;
  const wchar_t* text;
  int16_t code;
};

class SvcUtlTest : public testing::Test {
 protected:
  /// Runs the method in a language, without and with boxes.
  template <typename Method>
  void ExpectFailure(LanguageMode mode, const Expected& expected, Method method, bool asks = false) {
    for (const bool boxesOn : {false, true}) {
      FakeService pc(mode);
      pc.service->pDispErrMsgBox(boxesOn);
      EXPECT_FALSE(method(pc));
      EXPECT_EQ(pc.service->pErrMsg(), expected.text);
      EXPECT_EQ(pc.service->pErrCode(), expected.code);
      if (asks) pc.boxes.boxes.erase(pc.boxes.boxes.begin());
      ASSERT_EQ(pc.boxes.boxes.size(), boxesOn ? 1U : 0U);
      if (!boxesOn) continue;
      EXPECT_EQ(pc.Box().title, expected.title);
      EXPECT_EQ(pc.Box().text, expected.text);
      EXPECT_EQ(pc.Box().icon, report::BoxIcon::Exclamation);
      EXPECT_FALSE(pc.Box().asksYesNo);
    }
  }
};

TEST_F(SvcUtlTest, Starts_uninitialised_and_without_an_error) {
  FakeService pc;
  const auto made = pc.NewService();
  EXPECT_FALSE(made->pInitialized());
  EXPECT_EQ(made->pErrMsg(), L"");
  EXPECT_EQ(made->pErrCode(), 0);
}

TEST_F(SvcUtlTest, The_constants_are_those_of_the_service_control_manager) {
  EXPECT_EQ(SvcUtl::pLangJapanese, 0);
  EXPECT_EQ(SvcUtl::pLangEnglish, 1);
  EXPECT_EQ(SvcUtl::pSvcCondStopped, 1);
  EXPECT_EQ(SvcUtl::pSvcCondStartPending, 2);
  EXPECT_EQ(SvcUtl::pSvcCondStopPending, 3);
  EXPECT_EQ(SvcUtl::pSvcCondRunning, 4);
  EXPECT_EQ(SvcUtl::pSvcStartTypeAutoStart, 2);
  EXPECT_EQ(SvcUtl::pSvcStartTypeDemandStart, 3);
}

TEST_F(SvcUtlTest, Is_initialised_when_the_library_is_on_the_search_path) {
  FakeService pc;
  const auto made = pc.NewService();
  EXPECT_TRUE(made->mInitialize(kEnglishMode));
  EXPECT_TRUE(made->pInitialized());
  EXPECT_EQ(pc.kernel.searched.back(), "SvcKit.DLL");
  EXPECT_TRUE(made->mTerminate());
  EXPECT_FALSE(made->pInitialized());
}

TEST_F(SvcUtlTest, A_missing_library_is_reported_with_code_1_in_both_languages) {
  const auto initialize = [](LanguageMode mode) {
    return [mode](FakeService& pc) {
      pc.kernel.paths.clear();
      const bool done = pc.service->mInitialize(mode);
      EXPECT_FALSE(pc.service->pInitialized());
      return done;
    };
  };
  ExpectFailure(kEnglishMode, {L"Confirming System Service", L"SvcKit.DLL not Exist", 1},
                initialize(kEnglishMode));
  ExpectFailure(kJapaneseMode, {L"サービスの動作確認", L"SvcKit.DLLがありません", 1},
                initialize(kJapaneseMode));
}

TEST_F(SvcUtlTest, Messages_are_Japanese_before_the_initialisation) {
  FakeService pc;
  const auto made = pc.NewService();
  pc.library.queryResult = kFailed;
  int32_t status = 0;
  made->mGetServiceStatus(L"Spooler", status);
  EXPECT_EQ(made->pErrMsg(), L"Spooler の動作状態の確認に失敗しました Err=0x8000ABCD");
}

TEST_F(SvcUtlTest, Every_language_id_except_zero_selects_English) {
  for (const LanguageMode mode : {-1, 1, 1041}) {
    FakeService pc(mode);
    pc.library.stopResult = 5;
    pc.service->mStartStopService(L"Spooler", false);
    EXPECT_EQ(pc.service->pErrMsg(), L"Can't stop \"Spooler\". Err=0x5");
  }
}

TEST_F(SvcUtlTest, Queries_the_state_without_waiting) {
  for (int32_t state = SvcUtl::pSvcCondStopped; state <= SvcUtl::pSvcCondRunning; ++state) {
    FakeService pc;
    pc.library.status = state;
    int32_t status = 0;
    EXPECT_TRUE(pc.service->mGetServiceStatus(L"Spooler", status));
    EXPECT_EQ(status, state);
    EXPECT_EQ(pc.library.calls, Calls{"Query Spooler -1"});
  }
}

TEST_F(SvcUtlTest, The_query_of_an_unknown_service_succeeds_and_leaves_the_state_alone) {
  FakeService pc;
  pc.service->pDispErrMsgBox(true);
  pc.library.queryResult = kTolerated;
  int32_t status = 77;
  EXPECT_TRUE(pc.service->mGetServiceStatus(L"Spooler", status));
  EXPECT_EQ(status, 77);
  EXPECT_EQ(pc.service->pErrCode(), 0);
  EXPECT_TRUE(pc.boxes.boxes.empty());
}

TEST_F(SvcUtlTest, A_failed_query_is_reported_in_both_languages_and_leaves_the_state_alone) {
  const auto query = [](FakeService& pc) {
    pc.library.queryResult = kFailed;
    int32_t status = 77;
    const bool done = pc.service->mGetServiceStatus(L"Spooler", status);
    EXPECT_EQ(status, 77);
    return done;
  };
  ExpectFailure(
      kEnglishMode,
      {L"Confirming System Service", L"Can't get status information of \"Spooler\". Err=0x8000ABCD", 1},
      query);
  ExpectFailure(kJapaneseMode,
                {L"サービスの動作確認", L"Spooler の動作状態の確認に失敗しました Err=0x8000ABCD", 1}, query);
}

TEST_F(SvcUtlTest, Starts_and_stops_without_waiting) {
  FakeService pc;
  EXPECT_TRUE(pc.service->mStartStopService(L"Spooler", true));
  EXPECT_TRUE(pc.service->mStartStopService(L"Spooler", false));
  EXPECT_EQ(pc.library.calls, (Calls{"Start Spooler -1", "Stop Spooler -1"}));
}

TEST_F(SvcUtlTest, A_failed_start_is_reported_in_both_languages) {
  const auto start = [](FakeService& pc) {
    pc.library.startResult = 0x0A;
    return static_cast<bool>(pc.service->mStartStopService(L"Spooler", true));
  };
  ExpectFailure(kEnglishMode, {L"Starting System Service", L"Can't Start \"Spooler\". Err=0xA", 1}, start);
  ExpectFailure(kJapaneseMode, {L"サービスの開始", L"Spooler の開始に失敗しました Err=0xA", 1}, start);
}

TEST_F(SvcUtlTest, A_failed_stop_is_reported_in_both_languages) {
  const auto stop = [](FakeService& pc) {
    pc.library.stopResult = kTolerated;
    return static_cast<bool>(pc.service->mStartStopService(L"Spooler", false));
  };
  ExpectFailure(kEnglishMode, {L"Stopping System Service", L"Can't stop \"Spooler\". Err=0x80000124", 2},
                stop);
  ExpectFailure(kJapaneseMode, {L"サービスの終了", L"Spooler の停止に失敗しました Err=0x80000124", 2}, stop);
}

TEST_F(SvcUtlTest, A_success_keeps_the_text_of_the_previous_failure) {
  FakeService pc;
  pc.library.stopResult = 5;
  pc.service->mStartStopService(L"Spooler", false);
  pc.service->mStartStopService(L"Spooler", true);
  EXPECT_EQ(pc.service->pErrMsg(), L"Can't stop \"Spooler\". Err=0x5");
  EXPECT_EQ(pc.service->pErrCode(), 2);
}

// Setup

bool SetUpSpooler(FakeService& pc) {
  return pc.service->mSetupService(L"Spooler", L"Print spooler", L"C:\\spool.exe",
                                   SvcUtl::pSvcStartTypeAutoStart);
}

TEST_F(SvcUtlTest, Setup_registers_waits_and_starts) {
  FakeService pc;
  EXPECT_TRUE(SetUpSpooler(pc));
  EXPECT_EQ(pc.library.calls, (Calls{"Install Spooler|Print spooler|C:\\spool.exe|2", "Start Spooler -1"}));
  EXPECT_EQ(pc.pump.sleeps, std::vector<uint32_t>{1000});
}

TEST_F(SvcUtlTest, The_pause_after_a_change_can_be_set_and_switched_off) {
  FakeService pc;
  pc.service->pSleepRegistToStart(250);
  SetUpSpooler(pc);
  for (const int32_t none : {0, -5}) {
    pc.service->pSleepRegistToStart(none);
    SetUpSpooler(pc);
  }
  EXPECT_EQ(pc.pump.sleeps, std::vector<uint32_t>{250});
}

TEST_F(SvcUtlTest, A_stop_request_of_a_run_does_not_shorten_the_pause) {
  FakeService pc;
  pc.pump.stop = true;
  SetUpSpooler(pc);
  EXPECT_EQ(pc.pump.now, 1000U);
}

TEST_F(SvcUtlTest, A_failed_registration_starts_nothing_and_is_reported_in_both_languages) {
  const auto setup = [](FakeService& pc) {
    pc.library.installResult = 1073;
    const bool done = SetUpSpooler(pc);
    EXPECT_EQ(pc.library.calls.size(), 1U);
    return done;
  };
  ExpectFailure(kEnglishMode, {L"Adding System Service", L"Can't install \"Spooler\". Err=0x431", 1}, setup);
  ExpectFailure(kJapaneseMode, {L"サービスの登録", L"Spooler の登録に失敗しました Err=0x431", 1}, setup);
}

TEST_F(SvcUtlTest, A_failed_start_after_the_registration_is_reported_in_both_languages) {
  const auto setup = [](FakeService& pc) {
    pc.library.startResult = 5;
    return SetUpSpooler(pc);
  };
  ExpectFailure(kEnglishMode, {L"Adding System Service", L"Can't start \"Spooler\". Err=0x5", 2}, setup);
  ExpectFailure(kJapaneseMode, {L"サービスの登録", L"Spooler の開始に失敗しました Err=0x5", 2}, setup);
}

// Removal

TEST_F(SvcUtlTest, Removing_a_service_that_is_not_running_asks_nothing) {
  for (const int32_t state :
       {SvcUtl::pSvcCondStopped, SvcUtl::pSvcCondStartPending, SvcUtl::pSvcCondStopPending}) {
    FakeService pc;
    pc.library.status = state;
    EXPECT_TRUE(pc.service->mRemoveService(L"Spooler"));
    EXPECT_EQ(pc.library.calls, (Calls{"Query Spooler -1", "Remove Spooler"}));
    EXPECT_TRUE(pc.boxes.boxes.empty());
    EXPECT_TRUE(pc.pump.sleeps.empty());
  }
}

TEST_F(SvcUtlTest, Removing_a_running_service_asks_in_both_languages) {
  for (const LanguageMode mode : {kEnglishMode, kJapaneseMode}) {
    FakeService pc(mode);
    pc.boxes.answerYes = true;
    EXPECT_TRUE(pc.service->mRemoveService(L"Spooler"));
    EXPECT_EQ(pc.library.calls, (Calls{"Query Spooler -1", "Stop Spooler -1", "Remove Spooler"}));
    EXPECT_EQ(pc.pump.sleeps, std::vector<uint32_t>{1000});
    EXPECT_TRUE(pc.Box().asksYesNo);
    EXPECT_EQ(pc.Box().icon, report::BoxIcon::Exclamation);
    EXPECT_FALSE(pc.Box().defaultIsNo);
    EXPECT_EQ(pc.Box().title, mode == kJapaneseMode ? L"サービスの削除確認" : L"Remove System Service");
    EXPECT_EQ(pc.Box().text, mode == kJapaneseMode
                                 ? L"Spooler が動作中です。\rSpooler を削除して "
                                   L"インストールを続行してもいいですか？\r\r"
                                   L"（ <いいえ>ボタンを選択すると インストールは中止されます ）"
                                 : L"\"Spooler\" is now running.\rCan you remove \"Spooler\" ?\r\r"
                                   L"( If you select <No> button, the installation is aborted. )");
  }
}

TEST_F(SvcUtlTest, A_declined_removal_changes_nothing) {
  FakeService pc;
  pc.service->pDispErrMsgBox(true);
  EXPECT_FALSE(pc.service->mRemoveService(L"Spooler"));
  EXPECT_EQ(pc.library.calls, Calls{"Query Spooler -1"});
  EXPECT_EQ(pc.boxes.boxes.size(), 1U);
  EXPECT_EQ(pc.service->pErrMsg(), L"");
}

TEST_F(SvcUtlTest, A_failed_query_ends_the_removal_and_is_reported_in_both_languages) {
  const auto remove = [](FakeService& pc) {
    pc.library.queryResult = 5;
    const bool done = pc.service->mRemoveService(L"Spooler");
    EXPECT_EQ(pc.library.calls.size(), 1U);
    return done;
  };
  ExpectFailure(kEnglishMode,
                {L"Removing System Service", L"Can't get status information of \"Spooler\". Err=0x5", 1},
                remove);
  ExpectFailure(kJapaneseMode, {L"サービスの削除", L"Spooler の動作状態の確認に失敗しました Err=0x5", 1},
                remove);
}

TEST_F(SvcUtlTest, A_failed_stop_ends_the_removal_and_is_reported_in_both_languages) {
  const auto remove = [](FakeService& pc) {
    pc.boxes.answerYes = true;
    pc.library.stopResult = 1052;
    const bool done = pc.service->mRemoveService(L"Spooler");
    EXPECT_EQ(pc.library.Count("Remove"), 0);
    return done;
  };
  ExpectFailure(kEnglishMode, {L"Removing System Service", L"Can't stop \"Spooler\". Err=0x41C", 2}, remove,
                true);
  ExpectFailure(kJapaneseMode, {L"サービスの削除", L"Spooler の停止に失敗しました Err=0x41C", 2}, remove,
                true);
}

TEST_F(SvcUtlTest, A_failed_removal_is_reported_in_both_languages) {
  const auto remove = [](FakeService& pc) {
    pc.library.status = SvcUtl::pSvcCondStopped;
    pc.library.removeResult = 1072;
    return static_cast<bool>(pc.service->mRemoveService(L"Spooler"));
  };
  ExpectFailure(kEnglishMode, {L"Removing System Service", L"Can't remove \"Spooler\". Err=0x430", 2},
                remove);
  ExpectFailure(kJapaneseMode, {L"サービスの削除", L"Spooler の削除に失敗しました Err=0x430", 2}, remove);
}

TEST_F(SvcUtlTest, Removing_a_missing_service_succeeds) {
  FakeService pc;
  pc.library.queryResult = pc.library.removeResult = kTolerated;
  EXPECT_TRUE(pc.service->mRemoveService(L"Spooler"));
  EXPECT_EQ(pc.library.calls, (Calls{"Query Spooler -1", "Remove Spooler"}));
}

// Destructor

TEST_F(SvcUtlTest, The_destructor_is_silent_unless_mTerminate_is_missing) {
  FakeService pc;
  pc.NewService().reset();
  auto terminated = pc.NewService();
  terminated->mInitialize(kEnglishMode);
  terminated->mTerminate();
  terminated.reset();
  pc.kernel.paths.clear();
  auto unfounded = pc.NewService();
  unfounded->mInitialize(kEnglishMode);
  unfounded.reset();
  EXPECT_TRUE(pc.boxes.boxes.empty());
}

TEST_F(SvcUtlTest, The_destructor_reports_a_forgotten_mTerminate) {
  for (const LanguageMode mode : {kEnglishMode, kJapaneseMode, kLanguageFile}) {
    FakeService pc(mode);
    pc.service.reset();
    EXPECT_EQ(pc.Box().text, L"SvcUtl is not Terminated");
    EXPECT_EQ(pc.Box().title, L"");
    EXPECT_EQ(pc.Box().icon, report::BoxIcon::None);
  }
}

TEST_F(SvcUtlTest, The_destructor_is_silent_after_every_failure) {
  FakeService pc;
  pc.library.queryResult = pc.library.startResult = pc.library.stopResult = pc.library.installResult =
      kFailed;
  int32_t status = 0;
  pc.service->mGetServiceStatus(L"Spooler", status);
  pc.service->mStartStopService(L"Spooler", true);
  pc.service->mStartStopService(L"Spooler", false);
  SetUpSpooler(pc);
  pc.service->mRemoveService(L"Spooler");
  pc.service->mTerminate();
  pc.service.reset();
  EXPECT_TRUE(pc.boxes.boxes.empty());
}

TEST_F(SvcUtlTest, An_unusable_library_throws_and_sets_no_error) {
  FakeService pc;
  pc.library.missing = true;
  int32_t status = 0;
  EXPECT_THROW(pc.service->mGetServiceStatus(L"Spooler", status), RuntimeError);
  EXPECT_EQ(pc.service->pErrMsg(), L"");
}

}  // namespace
}  // namespace tarvik::test
