// The passes of a run, its log and how it ends.

#include "platform/runtime_error.h"
#include "tests/unit/cnclib/pmc_fixture.h"

namespace tarvik::test {
namespace {

TEST_F(PmcTest, A_count_below_1_completes_without_a_read) {
  for (const wchar_t* count : {L"0", L"-7"}) {
    Read(count);
    EXPECT_EQ(Log().lines, Lines{system.now});
  }
  EXPECT_EQ(library.reads, 0);
}

TEST_F(PmcTest, Connecting_shows_the_hourglass) {
  library.onCall = [this] {
    const bool connects = library.Names().back() == "nx_allochandle3";
    EXPECT_EQ(form->CurrentPointer(), connects ? ui::Pointer::Hourglass : ui::Pointer::Default);
  };
  Read(L"1");
}

TEST_F(PmcTest, Each_pass_adds_a_line_shows_its_number_and_pauses) {
  // What the user sees whenever events run: the last line, the number and the elapsed time.
  using Snapshot = std::tuple<std::wstring, std::wstring, uint64_t>;
  std::vector<Snapshot> snapshots;
  pump.onEvents = [&] {
    const Snapshot snapshot{Log().lines.back(), Caption(ID_lblCount), pump.now};
    if (snapshots.empty() || snapshots.back() != snapshot) snapshots.push_back(snapshot);
  };
  // Shorter than FakePump::kBetweenEvents, so that no snapshot is taken in the middle of a pause.
  Box(ID_txtSleep).SetText(L"200");
  Read(L"3");
  EXPECT_EQ(snapshots, (std::vector<Snapshot>{{L"0001 OK", L"", 0},
                                              {L"0001 OK", L"1", 0},
                                              {L"0001 OK", L"1", 200},
                                              {L"0002 OK", L"1", 200},
                                              {L"0002 OK", L"2", 200},
                                              {L"0002 OK", L"2", 400},
                                              {L"0003 OK", L"2", 400},
                                              {L"0003 OK", L"3", 400},
                                              {L"0003 OK", L"3", 600},
                                              {L"2/3/2024 4:05:06 PM", L"3", 600}}));
}

TEST_F(PmcTest, The_passes_end_with_the_date_and_time_and_the_last_line_is_in_view) {
  Box(ID_txtSleep).SetText(L"600");
  Read(L"3");
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", L"0002 OK", L"0003 OK", system.now}));
  EXPECT_EQ(Log().SelectedIndex(), 3);
  EXPECT_EQ(Caption(ID_lblCount), L"3");
  EXPECT_EQ(pump.sleeps, std::vector<uint32_t>(3, 600));
  EXPECT_EQ(pump.now, 1800U);
  EXPECT_EQ(pump.eventRounds, 7);
  EXPECT_EQ(library.frees, 1);
}

TEST_F(PmcTest, An_interval_of_0_does_not_pause_but_lets_events_run) {
  Box(ID_txtSleep).SetText(L"0");
  Read(L"3");
  EXPECT_EQ(pump.now, 0U);
  EXPECT_EQ(pump.eventRounds, 7);
}

TEST_F(PmcTest, A_stop_ends_the_run_after_the_pass_without_the_date_and_time) {
  library.onRead = [&] {
    if (library.reads == 2) Click(ID_cmdStop);
  };
  Read(L"10");
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", L"0002 OK"}));
  EXPECT_EQ(library.frees, 1);
  ExpectIdle();
}

TEST_F(PmcTest, A_stop_does_not_wait_for_the_end_of_a_long_interval) {
  Box(ID_txtSleep).SetText(L"600000");
  pump.onEvents = [&] {
    if (pump.now >= 1000) Click(ID_cmdStop);
  };
  Read(L"10");
  EXPECT_EQ(library.reads, 1);
  EXPECT_EQ(pump.now, 1000U);
}

TEST_F(PmcTest, A_stop_request_ends_with_its_run) {
  library.onRead = [&] { Click(ID_cmdStop); };
  Read(L"10");
  library.onRead = nullptr;
  Click(ID_cmdStop);
  Read(L"2");
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", L"0002 OK", system.now}));
}

TEST_F(PmcTest, Esc_stops_a_run_and_does_nothing_else) {
  form->onEscape();
  library.onRead = [&] { form->onEscape(); };
  Read(L"10");
  EXPECT_EQ(library.reads, 1);
  EXPECT_TRUE(form->Visible());
}

TEST_F(PmcTest, A_stop_of_the_main_windows_run_also_stops_a_run_inside_it) {
  library.onRead = [&] { pump.stop = library.reads == 2; };
  Read(L"10");
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", L"0002 OK"}));
}

TEST_F(PmcTest, A_second_read_does_not_start_inside_the_first) {
  library.onRead = [&] { Click(ID_cmdRead); };
  Read(L"2");
  EXPECT_EQ(library.Count("nx_allochandle3"), 1);
  EXPECT_EQ(library.reads, 2);
}

TEST_F(PmcTest, The_window_refuses_to_close_during_a_run_and_during_its_boxes) {
  library.onRead = [&] {
    EXPECT_FALSE(form->Close());
    Click(ID_cmdClose);
  };
  boxes.onShow = [&] {
    EXPECT_TRUE(window->Running());
    EXPECT_FALSE(form->Close());
  };
  Read();
  library.missing = {"nx_pmc_rdrange"};
  Read();
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_TRUE(form->Visible());
  EXPECT_FALSE(window->Unloaded());
  Click(ID_cmdClose);
  EXPECT_TRUE(window->Unloaded());
  EXPECT_FALSE(form->Visible());
}

TEST_F(PmcTest, An_error_is_logged_with_its_code_and_the_data_stay) {
  Read();
  library.readResult = 6;
  Read();
  EXPECT_EQ(Log().lines, (Lines{L"0001 ERR Ret=6", system.now}));
  EXPECT_EQ(Data().lines, Lines{L"0000\tFF"});
  EXPECT_EQ(library.Count("nx_pmc_detailerr"), 0);
}

TEST_F(PmcTest, A_PMC_error_is_logged_with_both_details) {
  library.readResult = -16;
  library.detail = {-3, 12};
  Read();
  EXPECT_EQ(Log().lines[0], L"0001 ERR Ret=-16,-3,12");
  EXPECT_EQ(library.Names(),
            (Calls{"nx_allochandle3", "nx_pmc_rdrange", "nx_pmc_detailerr", "nx_freehandle"}));
  EXPECT_EQ(library.calls[2], "nx_pmc_detailerr(5)");
}

TEST_F(PmcTest, Details_that_the_library_does_not_set_are_0) {
  library.readResult = -16;
  library.fillsRecords = false;
  Read();
  EXPECT_EQ(Log().lines[0], L"0001 ERR Ret=-16,0,0");
}

TEST_F(PmcTest, A_run_continues_after_an_error) {
  library.onRead = [&] { library.readResult = library.reads == 2 ? int16_t{6} : int16_t{0}; };
  Read(L"3");
  EXPECT_EQ(Log().lines, (Lines{L"0001 OK", L"0002 ERR Ret=6", L"0003 OK", system.now}));
}

TEST_F(PmcTest, Data_that_the_library_does_not_set_are_not_those_of_the_previous_pass) {
  library.onRead = [&] {
    if (library.reads == 2) library.data.clear();
  };
  Read(L"2");
  EXPECT_EQ(Data().lines, Lines{L"0000\t0"});
}

TEST_F(PmcTest, A_library_that_overwrites_the_request_changes_no_later_read) {
  library.spoilsHeader = true;
  Read(L"2");
  EXPECT_EQ(Data().lines, Lines{L"0000\tFF"});
  EXPECT_EQ(library.calls[2], "nx_pmc_rdrange(5, 9, 0, 0, 0, 9)");
}

TEST_F(PmcTest, The_32768th_good_line_starts_a_fresh_log) {
  Box(ID_txtSleep).SetText(L"0");
  int most = 0;
  library.onRead = [&] { most = std::max(most, Log().Count()); };
  Read(L"32768");
  EXPECT_EQ(most, 32767);
  EXPECT_EQ(Log().lines, (Lines{L"32768 OK", system.now}));
}

TEST_F(PmcTest, Errors_never_clear_the_log) {
  Box(ID_txtSleep).SetText(L"0");
  library.onRead = [&] {
    library.readResult = library.reads > 32767 && library.reads < 32770 ? int16_t{6} : int16_t{0};
  };
  int before = 0;
  pump.onEvents = [&] {
    if (library.reads == 32769) before = Log().Count();
  };
  Read(L"32770");
  EXPECT_EQ(before, 32769);
  EXPECT_EQ(Log().lines, (Lines{L"32770 OK", system.now}));
}

TEST_F(PmcTest, A_length_that_becomes_invalid_during_a_run_keeps_its_last_valid_value) {
  Box(ID_txtPmcLen).SetText(L"2");
  for (const wchar_t* typed : {L"", L"-", L"x", L"0", L"8001", L"30000", L"99999999999"}) {
    library.calls.clear();
    library.onRead = [&] {
      Box(ID_txtPmcStart).SetText(L"7");
      Box(ID_txtPmcLen).SetText(library.reads % 3 == 1 ? L"5" : typed);
    };
    library.reads = 0;
    Box(ID_txtPmcLen).SetText(L"2");
    Read(L"3");
    ASSERT_EQ(library.calls.size(), 5U) << typed;
    EXPECT_TRUE(library.calls[2].ends_with(", 9, 0, 7, 11, 13)")) << library.calls[2];
    EXPECT_TRUE(library.calls[3].ends_with(", 9, 0, 7, 11, 13)")) << library.calls[3];
  }
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectIdle();
}

TEST_F(PmcTest, A_start_number_that_becomes_invalid_during_a_run_keeps_its_last_valid_value) {
  Box(ID_txtPmcStart).SetText(L"100");
  for (const wchar_t* typed : {L"", L"-1", L"32768", L"1.5"}) {
    library.calls.clear();
    library.onRead = [&] { Box(ID_txtPmcStart).SetText(typed); };
    Box(ID_txtPmcStart).SetText(L"100");
    Read(L"2");
    ASSERT_EQ(library.calls.size(), 4U) << typed;
    EXPECT_TRUE(library.calls[2].ends_with(", 9, 0, 100, 100, 9)")) << library.calls[2];
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(PmcTest, A_length_that_exceeds_16_bits_during_a_run_keeps_the_range) {
  Box(ID_txtPmcStart).SetText(L"32767");
  library.onRead = [&] { Box(ID_txtPmcLen).SetText(L"2"); };
  Read(L"2");
  EXPECT_EQ(library.calls[2], "nx_pmc_rdrange(5, 9, 0, 32767, 32767, 9)");
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(PmcTest, Read_rejects_values_that_the_last_run_ignored) {
  library.onRead = [&] { Box(ID_txtPmcLen).SetText(L""); };
  Read(L"2");
  EXPECT_EQ(library.reads, 2);
  EXPECT_TRUE(boxes.boxes.empty());
  Read(L"2");
  EXPECT_EQ(library.reads, 2);
  EXPECT_EQ(boxes.boxes.size(), 1U);
}

TEST_F(PmcTest, Boxes_that_change_between_two_passes_are_read_again) {
  library.onRead = [&] {
    Box(ID_txtPmcStart).SetText(L"7");
    Address().Select(2);
  };
  Read(L"2");
  EXPECT_EQ(library.calls[2], "nx_pmc_rdrange(5, 2, 0, 7, 7, 9)");
}

TEST_F(PmcTest, A_missing_function_is_reported_and_everything_is_restored) {
  library.readResult = -16;
  for (const char* call : {"nx_allochandle3", "nx_pmc_rdrange", "nx_pmc_detailerr"}) {
    boxes.boxes.clear();
    library.missing = {call};
    Read();
    ASSERT_EQ(boxes.boxes.size(), 1U) << call;
    EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
    EXPECT_TRUE(library.AllGivenBack()) << call;
    ExpectIdle();
  }
}

TEST_F(PmcTest, A_list_that_rejects_a_line_is_reported_and_everything_is_restored) {
  library.onRead = [&] { Data().refusing = true; };
  Read();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_TRUE(Data().redrawing);
  ExpectIdle();
}

}  // namespace
}  // namespace tarvik::test
