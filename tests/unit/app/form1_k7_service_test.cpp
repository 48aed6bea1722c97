#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

constexpr bool kGeneral = false;

class Form1K7ServiceTest : public Form1Test {
 protected:
  Form1K7ServiceTest() {
    kernel.messages[2] = "Not there.";
    // The general edition reads the language file from the program's own folder.
    files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  }

  ui::MemoryLabel& Label(int id) { return form.Get<ui::MemoryLabel>(id); }
  std::wstring Status() { return Label(ID_lblK7ServerStatus).Caption(); }
  void ClickStatus() { Label(ID_lblK7ServerStatus).Click(); }

  void StartGeneral(const std::wstring& commandLine = L"") { Start(commandLine, kGeneral); }
};

TEST_F(Form1K7ServiceTest, A_query_shows_the_hourglass_and_restores_that_of_a_running_test) {
  StartGeneral();
  svcKit.onQuery = [this] { EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Hourglass); };
  ClickStatus();
  EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);

  Address().SetText(L"192.168.1.100");
  onEvents = [this] {
    ClickStatus();
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Hourglass);
    onEvents = nullptr;
  };
  Click(ID_cmdK7Api);
  EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
}

// Start-up and shut-down

TEST_F(Form1K7ServiceTest, A_tool_tip_explains_that_a_click_refreshes_the_status) {
  system.profile["C:\\Program\\Language\\Tarvik.exe_1033.ini|1033|32"] = "Click to refresh";
  StartGeneral();
  EXPECT_EQ(Label(ID_lblK7ServerStatus).toolTip, L"Click to refresh");
}

TEST_F(Form1K7ServiceTest, The_general_edition_shows_the_service_status_from_the_start) {
  StartGeneral();
  EXPECT_EQ(Status(), L"Running");
  EXPECT_EQ(svcKit.calls, std::vector<std::string>{"Query K7Server -1"});
  EXPECT_TRUE(Tabs().PageOn(kK7SvcPage));
}

TEST_F(Form1K7ServiceTest, The_family_edition_never_calls_the_library) {
  Start();
  ClickStatus();
  Click(ID_cmdStartStopK7Server_1);
  Click(ID_cmdStartStopK7Server_0);
  Click(ID_cmdK7ServerDebug);
  EXPECT_TRUE(svcKit.calls.empty());
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1K7ServiceTest, Without_the_library_the_page_is_off_and_no_call_is_made) {
  kernel.paths.erase("SvcKit.dll");
  kernel.paths.erase("SvcKit.DLL");
  StartGeneral();
  EXPECT_FALSE(Tabs().PageOn(kK7SvcPage));
  EXPECT_TRUE(svcKit.calls.empty());
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(form.Close());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1K7ServiceTest, A_failed_first_query_is_reported_and_start_up_continues) {
  svcKit.queryResult = 5;
  StartGeneral(L"-PING_N 7 -X 0");
  EXPECT_EQ(boxes.Texts(),
            std::vector<std::wstring>{L"Can't get status information of \"K7Server\". Err=0x5"});
  EXPECT_EQ(Status(), L"---");
  EXPECT_EQ(List().horizontalExtent, 1500);
}

TEST_F(Form1K7ServiceTest, The_error_box_of_the_first_query_does_not_block_the_end_of_the_session) {
  svcKit.queryResult = 5;
  bool agreed = false;
  boxes.onShow = [&] { agreed = form.QueryEndSession(); };
  StartGeneral(L"-X 0");
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_TRUE(agreed);
}

TEST_F(Form1K7ServiceTest, An_unusable_library_is_reported_and_start_up_continues) {
  svcKit.missing = true;
  StartGeneral();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text, L"SvcKit.dll cannot be loaded.");
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_EQ(List().horizontalExtent, 1500);
}

TEST_F(Form1K7ServiceTest, Closing_terminates_the_service_utility) {
  StartGeneral();
  EXPECT_TRUE(form.Close());
  form1.reset();
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1K7ServiceTest, A_window_destroyed_without_closing_warns_that_SvcUtl_was_not_terminated) {
  StartGeneral();
  form1.reset();
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"SvcUtl is not Terminated"});
}

TEST_F(Form1K7ServiceTest, A_command_survives_the_end_of_the_session) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  svcKit.slowness = 5;
  Address().InsertItem(0, L"cnc");
  onEvents = [&] {
    EXPECT_FALSE(form.QueryEndSession());
    form.EndSession();
  };
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(settings.values[L"History\\01"], L"cnc");
  EXPECT_EQ(svcKit.Count("Start"), 1);
  EXPECT_TRUE(form.Close());
  form1.reset();
  for (const std::wstring& text : boxes.Texts()) EXPECT_NE(text, L"SvcUtl is not Terminated");
}

TEST_F(Form1K7ServiceTest, SvcUtl_uses_the_language_mode) {
  svcKit.queryResult = 5;
  StartGeneral(L"-LANGID 0 -X 0");
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"K7Server の動作状態の確認に失敗しました Err=0x5"});
}

// The status label

TEST_F(Form1K7ServiceTest, A_click_on_the_label_refreshes_it) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  const int before = pump.eventRounds;
  ClickStatus();
  EXPECT_EQ(Status(), L"Stopped");
  EXPECT_EQ(pump.eventRounds, before + 1);
  svcKit.status = SvcUtl::pSvcCondRunning;
  ClickStatus();
  EXPECT_EQ(Status(), L"Running");
}

TEST_F(Form1K7ServiceTest, A_pending_or_unknown_state_does_not_change_the_label) {
  StartGeneral();
  for (const int32_t state : {SvcUtl::pSvcCondStartPending, SvcUtl::pSvcCondStopPending, 0, 7}) {
    svcKit.status = state;
    ClickStatus();
    EXPECT_EQ(Status(), L"Running");
  }
  svcKit.queryResult = 5;
  ClickStatus();
  EXPECT_EQ(Status(), L"Running");
}

TEST_F(Form1K7ServiceTest, A_failed_query_after_a_click_on_the_label_shows_a_box) {
  StartGeneral();
  svcKit.queryResult = 5;
  ClickStatus();
  EXPECT_EQ(boxes.boxes.size(), 1U);
}

// Start, stop, debug

TEST_F(Form1K7ServiceTest, Index_1_starts_the_service_and_updates_the_label) {
  svcKit.status = SvcUtl::pSvcCondStopped;
  StartGeneral();
  EXPECT_EQ(Status(), L"Stopped");
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(Status(), L"Running");
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(161)", L"(162)"}));
}

TEST_F(Form1K7ServiceTest, Index_0_stops_the_service_and_updates_the_label) {
  StartGeneral();
  boxes.answerYes = true;
  Click(ID_cmdStartStopK7Server_0);
  EXPECT_EQ(Status(), L"Stopped");
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(165)", L"(166)"}));
}

TEST_F(Form1K7ServiceTest, The_texts_use_the_language_of_the_command_line) {
  StartGeneral(L"-LANGID 1 -X 0");
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"Already running"});
}

TEST_F(Form1K7ServiceTest, Debug_starts_the_server_while_its_service_is_stopped) {
  svcKit.status = SvcUtl::pSvcCondStopped;
  StartGeneral();
  Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(processes.commandLines, std::vector<std::wstring>{L"K7Server -debug"});
}

TEST_F(Form1K7ServiceTest, Debug_moves_the_focus_to_the_stop_button_while_the_service_runs) {
  StartGeneral();
  Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(form.Focus(), &Button(ID_cmdStartStopK7Server_0));
  EXPECT_TRUE(processes.commandLines.empty());
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"(116)"});
}

TEST_F(Form1K7ServiceTest, Debug_shows_no_error_box_for_a_failed_query) {
  StartGeneral();
  svcKit.queryResult = 5;
  Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"(116)"});
}

TEST_F(Form1K7ServiceTest, During_Start_no_other_Start_or_Stop_begins_and_the_window_cannot_close) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  svcKit.slowness = 4;
  int pauses = 0;
  const auto interfere = [&] {
    EXPECT_FALSE(form.Close());
    Click(ID_cmdStartStopK7Server_1);
    Click(ID_cmdStartStopK7Server_0);
    ++pauses;
  };
  onEvents = interfere;
  boxes.onShow = interfere;
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_GT(pauses, 3);
  EXPECT_EQ(svcKit.Count("Start"), 1);
  EXPECT_EQ(svcKit.Count("Stop"), 0);
  EXPECT_EQ(svcKit.Count("Query"), 6);  // one at start-up, one before the start, four after it
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(161)", L"(162)"}));
  onEvents = nullptr;
  boxes.onShow = nullptr;
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1K7ServiceTest, Debug_during_a_pending_start_warns_and_moves_the_focus) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  svcKit.pending = SvcUtl::pSvcCondStartPending;
  svcKit.slowness = 4;
  bool clicked = false;
  onEvents = [&] {
    if (clicked || svcKit.Count("Start") == 0) return;
    clicked = true;
    Click(ID_cmdK7ServerDebug);
  };
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(161)", L"(116)", L"(162)"}));
  EXPECT_EQ(form.Focus(), &Button(ID_cmdStartStopK7Server_0));
  EXPECT_TRUE(processes.commandLines.empty());
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1K7ServiceTest, A_status_query_during_a_pending_start_does_not_suppress_its_error_boxes) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  ClickStatus();
  ASSERT_EQ(Status(), L"Stopped");
  svcKit.pending = SvcUtl::pSvcCondStartPending;
  svcKit.slowness = 6;
  bool clicked = false;
  bool fails = false;
  svcKit.onQuery = [&] { svcKit.queryResult = std::exchange(fails, false) ? 5 : 0; };
  onEvents = [&] {
    if (svcKit.Count("Start") == 0 || std::exchange(clicked, true)) return;
    svcKit.status = SvcUtl::pSvcCondRunning;
    ClickStatus();
    EXPECT_EQ(Status(), L"Running");
    svcKit.status = SvcUtl::pSvcCondStartPending;
    fails = true;
  };
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(boxes.Texts(),
            (std::vector<std::wstring>{L"(161)", L"Can't get status information of \"K7Server\". Err=0x5",
                                       L"(162)"}));
}

TEST_F(Form1K7ServiceTest, Debug_and_the_status_query_do_not_nest) {
  StartGeneral();
  int depth = 0;
  int deepest = 0;
  onEvents = [&] {
    deepest = std::max(deepest, ++depth);
    EXPECT_FALSE(form.Close());
    Click(ID_cmdK7ServerDebug);
    ClickStatus();
    Click(ID_cmdStartStopK7Server_1);
    --depth;
  };
  Click(ID_cmdK7ServerDebug);
  ClickStatus();
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"(116)"});
}

TEST_F(Form1K7ServiceTest, A_command_can_run_after_an_earlier_one_threw) {
  StartGeneral();
  svcKit.missing = true;
  Click(ID_cmdStartStopK7Server_1);
  svcKit.missing = false;
  boxes.boxes.clear();
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"(160)"});
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1K7ServiceTest, A_service_can_be_restarted_during_the_K7_API_test) {
  StartGeneral();
  boxes.answerYes = true;
  Address().SetText(L"192.168.1.100");
  Box(ID_txtK7ApiTestCount).SetText(L"3");
  onEvents = [&] {
    k7Api.live = svcKit.status == SvcUtl::pSvcCondRunning ? 1 : 0;
    if (k7Api.checks.size() == 1 && svcKit.Count("Stop") == 0) Click(ID_cmdStartStopK7Server_0);
    if (k7Api.checks.size() == 2 && svcKit.Count("Start") == 0) Click(ID_cmdStartStopK7Server_1);
  };
  Click(ID_cmdK7Api);
  EXPECT_TRUE(Listed(L"00001 Live=True"));
  EXPECT_TRUE(Listed(L"00002 Live=False"));
  EXPECT_TRUE(Listed(L"00003 Live=True"));
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1K7ServiceTest, Every_command_works_during_a_run) {
  StartGeneral();
  svcKit.calls.clear();
  Address().SetText(L"192.168.1.100");
  bool clicked = false;
  onEvents = [&] {
    if (std::exchange(clicked, true)) return;
    ClickStatus();
    Click(ID_cmdStartStopK7Server_1);
    Click(ID_cmdK7ServerDebug);
  };
  Click(ID_cmdPing);
  EXPECT_EQ(svcKit.Count("Query"), 3);
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(160)", L"(116)"}));
}

TEST_F(Form1K7ServiceTest, A_command_inside_a_stopped_run_still_waits_for_the_service) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  svcKit.slowness = 0;
  svcKit.calls.clear();
  Address().SetText(L"192.168.1.100");
  bool begun = false;
  onEvents = [&] {
    if (std::exchange(begun, true)) return form.PressEscape();
    Click(ID_cmdStartStopK7Server_1);
  };
  Click(ID_cmdPing);
  EXPECT_EQ(svcKit.Count("Query"), 1 + 40);
  EXPECT_EQ(boxes.Texts(), (std::vector<std::wstring>{L"(161)", L"(163)"}));
}

TEST_F(Form1K7ServiceTest, Stopping_a_run_inside_a_command_does_not_shorten_its_wait) {
  StartGeneral();
  svcKit.status = SvcUtl::pSvcCondStopped;
  svcKit.slowness = 0;
  Address().SetText(L"192.168.1.100");
  bool begun = false;
  const uint64_t start = pump.now;
  onEvents = [&] {
    if (begun) {
      form.PressEscape();
      return;
    }
    begun = true;
    Click(ID_cmdPing);
  };
  Click(ID_cmdStartStopK7Server_1);
  EXPECT_TRUE(begun);
  EXPECT_GE(pump.now - start, 40U * 250);
}

}  // namespace
}  // namespace tarvik::test
