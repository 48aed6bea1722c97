#include "k7/k7_api_check.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_k7_api.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;
using Calls = std::vector<std::string>;

class K7ApiTest : public testing::Test, protected FakeContext {
 protected:
  bool Run(const std::wstring& count = L"1", const std::wstring& address = L"192.168.1.1") {
    return RunK7ApiTest(context, k7Api, codePage, address, host, count, L"a number is required");
  }
  /// Every test, however it ends, frees its handles and then cleans the library up.
  void ExpectNothingLeaked() {
    EXPECT_TRUE(k7Api.openHandles.empty());
    EXPECT_EQ(k7Api.wrongFrees, 0);
    EXPECT_EQ(k7Api.Count("K7_WSACleanup"), 1);
    EXPECT_EQ(k7Api.calls.back(), "K7_WSACleanup");
  }

  FakeK7Api k7Api;
  std::wstring host = L"127.0.0.1";
};

TEST_F(K7ApiTest, Three_cycles_with_a_live_CNC_add_five_lines_in_three_seconds) {
  EXPECT_TRUE(Run(L"3"));
  EXPECT_EQ(results.Lines(),
            (Lines{L"", L"K7Api test....", L"00001 Live=True", L"00002 Live=True", L"00003 Live=True"}));
  EXPECT_EQ(pump.now, 3000U);
  EXPECT_EQ(pump.sleeps, std::vector<uint32_t>(12, 250));
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, The_calls_are_made_in_this_order) {
  Run();
  EXPECT_EQ(k7Api.calls, (Calls{"K7_WSAStartup", "K7_AllocHandle", "K7_ConnectServer", "K7_CheckReboot2",
                                "K7_FreeHandle", "K7_WSACleanup"}));
}

TEST_F(K7ApiTest, A_test_inside_another_one_keeps_its_facts_apart) {
  bool begun = false;
  k7Api.onCheck = [&] {
    if (begun) return;
    begun = true;
    Run(L"1");
  };
  EXPECT_TRUE(Run(L"3"));
  EXPECT_EQ(recorder.run.facts.k7.asked, 3);
  EXPECT_EQ(recorder.run.facts.k7.answers, 3);
  EXPECT_EQ(recorder.run.facts.k7.progress, report::Progress::Ended);
}

TEST_F(K7ApiTest, Every_value_except_zero_means_live) {
  for (const int16_t live : {int16_t{-1}, int16_t{2}}) {
    k7Api.live = live;
    Run();
    EXPECT_EQ(results.Lines().back(), L"00001 Live=True");
  }
  k7Api.live = 0;
  Run();
  EXPECT_EQ(results.Lines().back(), L"00001 Live=False");
}

TEST_F(K7ApiTest, The_first_check_gets_zeros_and_each_later_one_the_states_of_its_predecessor) {
  Run(L"3");
  ASSERT_EQ(k7Api.checks.size(), 3U);
  EXPECT_EQ(k7Api.checks[0].stateA, 0);
  EXPECT_EQ(k7Api.checks[0].stateB, 0);
  EXPECT_EQ(k7Api.checks[1].stateA, 101);
  EXPECT_EQ(k7Api.checks[1].stateB, -1);
  EXPECT_EQ(k7Api.checks[2].stateA, 102);
  EXPECT_EQ(k7Api.checks[2].handle, 5);
}

TEST_F(K7ApiTest, Without_an_address_only_an_empty_box_is_shown_and_the_library_cleaned_up) {
  EXPECT_FALSE(Run(L"1", L""));
  EXPECT_EQ(boxes.Texts(), Lines{L""});
  EXPECT_TRUE(results.Lines().empty());
  EXPECT_EQ(k7Api.calls, Calls{"K7_WSACleanup"});
}

TEST_F(K7ApiTest, A_failed_allocation_is_reported) {
  k7Api.allocResult = 1;
  k7Api.handle = 0;
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.Texts(), Lines{L"Failed to K7_AllocHandle:No empty handle at all:SystemError=0:hdl=0"});
  EXPECT_EQ(k7Api.Count("K7_ConnectServer"), 0);
  EXPECT_EQ(k7Api.Count("K7_FreeHandle"), 0);
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, A_handle_returned_with_a_failure_is_freed) {
  k7Api.allocResult = -1;
  k7Api.handle = -7;
  EXPECT_FALSE(Run());
  EXPECT_TRUE(boxes.Texts().at(0).ends_with(L":hdl=-7"));
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, A_failed_connection_names_the_host) {
  k7Api.connectResult = 0;
  k7Api.errorCode = 0x1009F005;
  k7Api.systemError = -2;
  host = L"server";
  EXPECT_FALSE(Run());
  EXPECT_EQ(
      boxes.Texts(),
      Lines{L"Failed to K7_ConnectServer:Required K7 server is unknown:SystemError=FFFFFFFE:hdl=5 [server]"});
  EXPECT_TRUE(k7Api.checks.empty());
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, A_failed_check_ends_the_test_and_keeps_the_lines_before_it) {
  k7Api.goodChecks = 1;
  k7Api.errorCode = 0x1009F003;
  k7Api.systemError = 0x2AB;
  EXPECT_FALSE(Run(L"5"));
  EXPECT_EQ(results.Lines(), (Lines{L"", L"K7Api test....", L"00001 Live=True"}));
  EXPECT_EQ(boxes.Texts(),
            Lines{L"Failed to K7_CheckReboot:Not connected to K7 Server:SystemError=2AB:hdl=5"});
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, The_box_is_shown_before_the_handle_is_freed) {
  k7Api.connectResult = 0;
  boxes.onShow = [this] { EXPECT_EQ(k7Api.openHandles.size(), 1U); };
  EXPECT_FALSE(Run());
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, Error_texts_are_Japanese_in_the_built_in_Japanese_mode) {
  mode = kBuiltInJapanese;
  k7Api.allocResult = 1;
  k7Api.handle = 0;
  Run();
  EXPECT_EQ(boxes.Texts(), Lines{L"Failed to K7_AllocHandle:空きハンドルがありません:SystemError=0:hdl=0"});
}

TEST_F(K7ApiTest, An_unknown_error_code_has_an_empty_text_in_the_message) {
  k7Api.connectResult = 0;
  k7Api.errorCode = 12345;
  Run();
  EXPECT_EQ(boxes.Texts(), Lines{L"Failed to K7_ConnectServer::SystemError=0:hdl=5 [127.0.0.1]"});
}

TEST_F(K7ApiTest, A_count_of_zero_or_less_connects_and_runs_no_cycle) {
  for (const wchar_t* const count : {L"0", L"-5", L"-2147483648"}) {
    k7Api.calls.clear();
    EXPECT_TRUE(Run(count)) << count;
    EXPECT_TRUE(k7Api.checks.empty());
    EXPECT_EQ(k7Api.Count("K7_ConnectServer"), 1);
    ExpectNothingLeaked();
  }
}

TEST_F(K7ApiTest, A_count_that_is_not_a_number_is_reported) {
  for (const wchar_t* const count : {L"", L"ten", L"1.5", L"2147483648"}) {
    k7Api.calls.clear();
    boxes.boxes.clear();
    EXPECT_FALSE(Run(count)) << count;
    EXPECT_EQ(boxes.Texts(), Lines{L"a number is required"});
    EXPECT_TRUE(k7Api.checks.empty());
    ExpectNothingLeaked();
  }
}

TEST_F(K7ApiTest, A_stop_takes_effect_at_the_end_of_the_current_second) {
  pump.stopAt = 1400;
  EXPECT_TRUE(Run(L"10"));
  EXPECT_EQ(results.Lines().back(), L"00002 Live=True");
  EXPECT_EQ(pump.now, 2000U);
  EXPECT_EQ(pump.sleeps.size(), 8U);
  EXPECT_EQ(pump.eventRounds, 8);
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, The_end_of_the_program_ends_the_test_at_once) {
  pump.onEvents = [this] { pump.ending = pump.now >= 250; };
  EXPECT_TRUE(Run(L"10"));
  EXPECT_EQ(pump.now, 250U);
  EXPECT_EQ(results.Lines().back(), L"00001 Live=True");
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, The_cycle_number_grows_beyond_five_digits_and_the_largest_count_does_not_overflow) {
  // A stop takes effect only in the pauses, so it does not cut the number of checks short.
  pump.onEvents = [this] { pump.stop = k7Api.checks.size() >= 100001; };
  EXPECT_TRUE(Run(L"2147483647"));
  EXPECT_EQ(results.Lines().back(), L"100001 Live=True");
}

TEST_F(K7ApiTest, Texts_are_passed_in_256_zero_filled_bytes) {
  Run();
  EXPECT_EQ(k7Api.connectedTo, "127.0.0.1");
  EXPECT_EQ(k7Api.checks.at(0).address, "192.168.1.1");
  EXPECT_TRUE(k7Api.zeroFilled);
}

TEST_F(K7ApiTest, A_longer_text_is_still_NUL_terminated) {
  host = std::wstring(1000, L'h');
  Run();
  EXPECT_EQ(k7Api.connectedTo, std::string(1000, 'h'));
  EXPECT_EQ(host, std::wstring(1000, L'h'));
}

TEST_F(K7ApiTest, Texts_that_the_library_rewrites_are_used_from_then_on) {
  k7Api.hostAfter = std::string("10.0.0.7\0", 9);
  k7Api.addressAfter = std::string("cnc\0", 4);
  Run(L"2");
  EXPECT_EQ(host, L"10.0.0.7");
  EXPECT_EQ(k7Api.checks.at(0).address, "192.168.1.1");
  EXPECT_EQ(k7Api.checks.at(1).address, "cnc");
  EXPECT_TRUE(k7Api.zeroFilled);
}

TEST_F(K7ApiTest, A_rewritten_text_without_a_NUL_ends_with_its_buffer) {
  k7Api.hostAfter = std::string(256, 'x');
  k7Api.addressAfter = std::string(256, 'y');
  EXPECT_TRUE(Run(L"2"));
  EXPECT_EQ(host, std::wstring(256, L'x'));
  EXPECT_EQ(k7Api.checks.at(1).address, std::string(256, 'y'));
}

TEST_F(K7ApiTest, Outputs_that_the_library_does_not_set_are_zero) {
  k7Api.halfFilled = true;
  EXPECT_TRUE(Run(L"2"));
  EXPECT_EQ(results.Lines().back(), L"00002 Live=False");
  EXPECT_EQ(k7Api.checks.at(1).stateA, 0);
  k7Api.connectResult = 0;
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.Texts(), Lines{L"Failed to K7_ConnectServer:No Error:SystemError=0:hdl=5 [127.0.0.1]"});
}

TEST_F(K7ApiTest, Handle_0_with_a_good_result_is_used_and_not_freed) {
  k7Api.handle = 0;
  EXPECT_TRUE(Run());
  EXPECT_EQ(k7Api.Count("K7_FreeHandle"), 0);
  ExpectNothingLeaked();
}

TEST_F(K7ApiTest, A_library_that_cannot_be_loaded_throws) {
  k7Api.missing = true;
  EXPECT_THROW(Run(), RuntimeError);
}

TEST_F(K7ApiTest, A_list_that_rejects_a_line_leaks_nothing) {
  k7Api.onCheck = [this] { view.refusing = true; };
  EXPECT_THROW(Run(), RuntimeError);
  ExpectNothingLeaked();
}

}  // namespace
}  // namespace tarvik::test
