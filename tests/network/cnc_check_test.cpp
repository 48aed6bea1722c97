// The library test, started by its page's button.

#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

class LibraryTest : public CncTest<LibraryTest> {
 protected:
  /// The line of the CNC type for a controller with this scenario.
  std::string TypeOf(const std::string& scenario) {
    const Controller controller = Serve(scenario);
    const Lines lines = TestLibrary();
    EXPECT_EQ(lines.size(), 6U) << scenario;
    return lines.empty() ? "" : lines.front();
  }
};

TEST_F(LibraryTest, Six_lines_show_the_controllers_system_information) {
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(TestLibrary(), (Lines{"CNC Type\t31iB", "M/T     \t M", "Serise  \tG301", "Version \t10.0",
                                  "Max Axes\t32", "Axes    \t03"}));
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(LibraryTest, An_empty_line_precedes_its_title) {
  const Controller controller = Serve("");
  const WindowUnderTest window = StartOnPage();
  Lines expected = window.Lines(ID_lstResult);
  expected.insert(expected.end(), {"", kTestLine});
  Lines lines = ClickAndFollow(window, ID_cmdGetInfo);
  ASSERT_EQ(lines.size(), expected.size() + 6);
  lines.resize(expected.size());
  EXPECT_EQ(lines, expected);
}

TEST_F(LibraryTest, The_calls_use_what_was_typed_and_the_handle_is_freed) {
  const Controller controller = Serve(BenchScenario("all_well"));
  TestLibrary();
  EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 0 handle=1 open=1)",
                            "nx_getoptions1(1, 0) = 0 open=1", "nx_sysinfo(1) = 0 open=1",
                            "nx_freehandle(1) = 0 open=0"}));
}

TEST_F(LibraryTest, The_command_lines_time_out_and_the_typed_port_reach_the_library) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Start("-NXLIB_TMOUT 7 -TCP_PORT 8200");
  window.SelectTab(ID_tabMode, 1);
  window.SetText(ID_cmbIPAddr, kNearAddress);
  EXPECT_EQ(TestLibrary(window), Lines{"Allocate Handle error=-102"});
  window.SetText(ID_txtTcpPortNo, "8193");
  EXPECT_EQ(TestLibrary(window).size(), 6U);
  const Lines calls = Calls();
  ASSERT_EQ(calls.size(), 5U);
  EXPECT_EQ(calls.at(0), R"(nx_allochandle3("192.168.1.100", 8200, 7) = -102 handle=0 open=0)");
  EXPECT_EQ(calls.at(1), R"(nx_allochandle3("192.168.1.100", 8193, 7) = 0 handle=1 open=1)");
}

TEST_F(LibraryTest, A_host_name_is_passed_to_the_library_as_typed) {
  Net().SetHostNames(Host::Pc, {{"cnc-1", kFarAddress}});
  const Controller controller = Serve("", Host::Far);
  const WindowUnderTest window = StartOnPage();
  window.SetText(ID_cmbIPAddr, "cnc-1");
  EXPECT_EQ(TestLibrary(window).size(), 6U);
  EXPECT_TRUE(HasCall(R"(nx_allochandle3("cnc-1", 8193, 5) = 0)"));
  window.SetText(ID_cmbIPAddr, "cnc-9");
  EXPECT_EQ(TestLibrary(window), Lines{"Allocate Handle error=-101"});
}

TEST_F(LibraryTest, Type_GL_is_shown_as_31) {
  EXPECT_EQ(TypeOf("model_type GL\naddinfo 0x0200\n"), "CNC Type\t31iB");
  EXPECT_EQ(TypeOf("model_type GL\naddinfo 0\n"), "CNC Type\t31");
}

TEST_F(LibraryTest, The_generation_is_a_letter_or_the_number_in_brackets) {
  EXPECT_EQ(TypeOf("model_type 16\naddinfo 255\n"), "CNC Type\t16");
  EXPECT_EQ(TypeOf("model_type 16\naddinfo 256\n"), "CNC Type\t16iA");
  EXPECT_EQ(TypeOf("model_type 16\naddinfo 6911\n"), "CNC Type\t16iZ");
  EXPECT_EQ(TypeOf("model_type 16\naddinfo 6912\n"), "CNC Type\t16i(6912)");
  EXPECT_EQ(TypeOf("model_type 16\naddinfo -256\n"), "CNC Type\t16");
}

TEST_F(LibraryTest, Only_the_type_is_trimmed) {
  const Controller controller = Serve(
      "model_type \" 0\"\nmachine_type \"T \"\nseries_code \" D4 \"\nversion_code \"1   \"\naxes_text \" "
      "2\"\n"
      "max_axes 8\naddinfo 0x0300\n");
  EXPECT_EQ(TestLibrary(), (Lines{"CNC Type\t0iC", "M/T     \tT ", "Serise  \t D4 ", "Version \t1   ",
                                  "Max Axes\t8", "Axes    \t 2"}));
}

TEST_F(LibraryTest, A_failed_option_check_shows_the_error_code_in_the_built_in_languages) {
  const Controller controller = Serve("result options -7\n");
  EXPECT_EQ(TestLibrary("-LANGID 1"), (Lines{"Option check error=-7", ""}));
  EXPECT_EQ(TestLibrary("-LANGID 0"), (Lines{"ｵﾌﾟｼｮﾝ確認ｴﾗｰ=-7", ""}));
  EXPECT_FALSE(HasCall("nx_sysinfo"));
}

TEST_F(LibraryTest, A_failed_option_check_shows_no_error_code_with_the_language_files) {
  const Controller controller = Serve("result options -7\n");
  EXPECT_EQ(TestLibrary("-LANGID -1"), (Lines{"Option check error", ""}));
  EXPECT_EQ(TestLibrary("-LOCALEID 1041"), (Lines{"ｵﾌﾟｼｮﾝ確認ｴﾗｰ", ""}));
}

TEST_F(LibraryTest, A_missing_option_is_reported_and_ends_the_test) {
  const Controller controller = Serve(BenchScenario("option_missing"));
  const char* english = "No option (Extended drivers and libraries function)";
  EXPECT_EQ(TestLibrary("-LANGID 1"), (Lines{english, ""}));
  EXPECT_EQ(TestLibrary("-LANGID -1"), (Lines{english, ""}));
  EXPECT_EQ(TestLibrary("-LOCALEID 1041"), (Lines{"ｵﾌﾟｼｮﾝがありません(拡張ﾄﾞﾗｲﾊﾞ･ﾗｲﾌﾞﾗﾘ機能)", ""}));
  EXPECT_FALSE(HasCall("nx_sysinfo"));
}

TEST_F(LibraryTest, A_missing_option_is_only_an_empty_line_in_the_built_in_Japanese) {
  const Controller controller = Serve(BenchScenario("option_missing"));
  EXPECT_EQ(TestLibrary("-LANGID 0"), Lines{""});
}

TEST_F(LibraryTest, Only_the_option_words_lowest_bit_is_checked) {
  const Controller controller = Serve("options 0xFFFFFFFF\n");
  EXPECT_EQ(TestLibrary().size(), 6U);
}

TEST_F(LibraryTest, Unreadable_system_information_shows_the_error_code_in_the_built_in_languages) {
  const Controller controller = Serve("result sysinfo 6\n");
  EXPECT_EQ(TestLibrary("-LANGID 1"), (Lines{"Get System Information error=6", ""}));
  EXPECT_EQ(TestLibrary("-LANGID 0"), (Lines{"NCｼｽﾃﾑ情報取得ｴﾗｰ=6", ""}));
}

TEST_F(LibraryTest, Unreadable_system_information_shows_no_error_code_with_the_language_files) {
  const Controller controller = Serve("result sysinfo 6\n");
  EXPECT_EQ(TestLibrary("-LANGID -1"), (Lines{"Get System Information error", ""}));
  EXPECT_EQ(TestLibrary("-LOCALEID 1041"), (Lines{"NCｼｽﾃﾑ情報取得ｴﾗｰ", ""}));
}

TEST_F(LibraryTest, Without_a_controller_the_connection_fails_in_every_language) {
  for (const char* language : {"-LANGID 1", "-LANGID 0", "-LANGID -1", "-LOCALEID 1041"})
    EXPECT_EQ(TestLibrary(language), Lines{"Allocate Handle error=-102"}) << language;
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(LibraryTest, A_pulled_cable_gives_no_connection_or_a_time_out) {
  const Controller controller = Serve("");
  Net().PullCable(Host::Near);
  const Lines lines = TestLibrary();
  EXPECT_TRUE(lines == Lines{"Allocate Handle error=-102"} || lines == Lines{"Allocate Handle error=-103"})
      << testing::PrintToString(lines);
}

TEST_F(LibraryTest, A_port_that_drops_everything_gives_a_time_out) {
  Drop(Host::Near, "tcp dport 8193");
  EXPECT_EQ(TestLibrary(), Lines{"Allocate Handle error=-103"});
}

TEST_F(LibraryTest, A_controller_that_stops_answering_gives_a_time_out_in_every_call) {
  for (const auto& [call, line] :
       {std::pair("connect", "Allocate Handle error=-103"), std::pair("options", "Option check error=-103"),
        std::pair("sysinfo", "Get System Information error=-103")}) {
    const Controller controller = Serve(std::string("silent ") + call + "\n");
    const WindowUnderTest window = StartOnPage("-LANGID 1");
    window.SetText(ID_txtNxlibTimeOut, "2");
    const Lines lines = TestLibrary(window);
    ASSERT_FALSE(lines.empty()) << call;
    EXPECT_EQ(lines.front(), line);
  }
}

TEST_F(LibraryTest, A_lost_connection_is_reported_in_every_call) {
  for (const auto& [call, line] :
       {std::pair("connect", "Allocate Handle error=-104"), std::pair("options", "Option check error=-104"),
        std::pair("sysinfo", "Get System Information error=-104")}) {
    const Controller controller = Serve(std::string("drop ") + call + "\n");
    const Lines lines = TestLibrary("-LANGID 1");
    ASSERT_FALSE(lines.empty()) << call;
    EXPECT_EQ(lines.front(), line);
  }
}

TEST_F(LibraryTest, Clicks_while_the_library_blocks_neither_close_the_window_nor_start_a_test) {
  const Controller controller = Serve("silent sysinfo\n");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdGetInfo);
  ASSERT_TRUE(WaitUntil(kSoon, [] { return HasCall("nx_getoptions1"); }));
  EXPECT_EQ(window.CurrentPointer(), WindowUnderTest::Pointer::Hourglass);
  window.Close();
  window.Click(ID_cmdGetInfo);
  ASSERT_TRUE(WaitUntil(kTestTimeOut, [] { return Calls().back() == "nx_freehandle(1) = 0 open=0"; }));
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return !RunIsActive(window); }));
  window.Settle();
  EXPECT_FALSE(RunIsActive(window));
  EXPECT_EQ(Calls().back(), "nx_freehandle(1) = 0 open=0") << "the click started another test";
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(LibraryTest, With_an_empty_address_nothing_is_tested) {
  const WindowUnderTest window = StartOnPage();
  window.SetText(ID_cmbIPAddr, "");
  const Lines before = window.Lines(ID_lstResult);
  window.Click(ID_cmdGetInfo);
  window.Settle();
  window.WaitForText(ID_cmdPing, "&Ping");
  EXPECT_EQ(window.Lines(ID_lstResult), before);
  EXPECT_TRUE(Calls().empty());
}

TEST_F(LibraryTest, A_port_or_time_out_beyond_16_bits_is_reported_before_any_call) {
  for (const int field : {ID_txtTcpPortNo, ID_txtNxlibTimeOut}) {
    const WindowUnderTest window = StartOnPage();
    window.SetText(field, "70000");
    TestLibrary(window);
    ASSERT_EQ(boxes_.size(), 1U);
    EXPECT_EQ(boxes_.front().icon, "critical");
    EXPECT_NE(boxes_.front().text.find("\"70000\""), std::string::npos) << boxes_.front().text;
    boxes_.clear();
  }
  EXPECT_TRUE(Calls().empty());
}

TEST_F(LibraryTest, It_can_be_repeated_and_appends_its_lines) {
  const Controller controller = Serve("connections 1\n");
  const WindowUnderTest window = StartOnPage();
  const Lines first = ClickAndFollow(window, ID_cmdGetInfo);
  const Lines second = ClickAndFollow(window, ID_cmdGetInfo);
  Lines expected = first;
  expected.insert(expected.end(), {"", kTestLine, "Allocate Handle error=-102"});
  EXPECT_EQ(second, expected);
}

}  // namespace
}  // namespace tarvik::lab
