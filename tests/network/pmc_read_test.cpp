// The PMC read test window with the bench's controller.

#include <optional>
#include <regex>

#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

class PmcRead : public CncTest<PmcRead> {
 protected:
  WindowUnderTest Open(const std::string& commandLine = {}) {
    main_.emplace(StartOnPage(commandLine));
    main_->InvokeCommand(ID_mnuPMC);
    return Program().WaitForWindow("frmPmcTest");
  }
  const WindowUnderTest& Main() { return *main_; }

  static void Fill(const WindowUnderTest& window, const std::string& start, const std::string& length,
                   const std::string& count, const std::string& interval = "0") {
    window.SetText(ID_txtPmcStart, start);
    window.SetText(ID_txtPmcLen, length);
    window.SetText(ID_txtCount, count);
    window.SetText(ID_txtSleep, interval);
  }

  /// Clicks Read, waits for the end and returns the log, with "(time)" for the date and time after a complete
  /// run.
  Lines Read(const WindowUnderTest& window) {
    const Lines before = Calls();
    window.Click(ID_cmdRead);
    EXPECT_TRUE(WaitUntil(kTestTimeOut, [&] {
      const Lines calls = Calls();
      return calls.size() > before.size() && calls.back().ends_with(" open=0") && window.Enabled(ID_cmdRead);
    }));
    ExpectIdle(window);
    return Log(window);
  }

  static Lines Log(const WindowUnderTest& window) {
    const std::regex dateAndTime("[0-9]+/[0-9]+/[0-9]+ .*[0-9]+:[0-9]+:[0-9]+.*");
    Lines lines = window.Lines(ID_pmc_lstResult);
    for (std::string& line : lines) line = std::regex_replace(line, dateAndTime, "(time)");
    return lines;
  }

  static void ExpectIdle(const WindowUnderTest& window) {
    // The buttons do not change at the same moment.
    EXPECT_TRUE(WaitUntil(kSoon, [&] {
      return window.Enabled(ID_cmdRead) && window.Enabled(ID_cmdClose) && !window.Enabled(ID_cmdStop);
    }));
  }

 private:
  std::optional<WindowUnderTest> main_;
};

TEST_F(PmcRead, Shows_each_byte_in_hexadecimal_with_its_number) {
  const Controller controller = Serve("pmc D 0 0x12 0x34 0x05 0xFF\n");
  const WindowUnderTest window = Open();
  Fill(window, "0", "4", "1");
  EXPECT_EQ(Read(window), (Lines{"0001 OK", "(time)"}));
  EXPECT_EQ(window.Lines(ID_lstData), (Lines{"0000\t12", "0001\t34", "0002\t5", "0003\tFF"}));
  EXPECT_EQ(window.StateOfList(ID_lstData).selected, 0);
  EXPECT_EQ(window.StateOfList(ID_pmc_lstResult).selected, 1);
  EXPECT_EQ(window.Text(ID_lblCount), "1");
  EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 0 handle=1 open=1)",
                            "nx_pmc_rdrange(1, 9, 0, 0, 3, 12) = 0 open=1", "nx_freehandle(1) = 0 open=0"}));
}

TEST_F(PmcRead, Bytes_are_numbered_from_0_whatever_the_start) {
  const Controller controller = Serve("pmc D 100 1 2\n");
  const WindowUnderTest window = Open();
  Fill(window, "100", "2", "1");
  Read(window);
  EXPECT_EQ(window.Lines(ID_lstData), (Lines{"0000\t1", "0001\t2"}));
  EXPECT_TRUE(HasCall("nx_pmc_rdrange(1, 9, 0, 100, 101, 10)"));
}

TEST_F(PmcRead, The_letters_position_in_the_list_is_the_librarys_address_type) {
  const Controller controller = Serve("pmc R 0 0xAB\npmc E 0 0xCD\n");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "1");
  for (const auto& [letter, request, byte] : {std::tuple("R", "nx_pmc_rdrange(1, 5, 0, 0, 0, 9)", "AB"),
                                              std::tuple("E", "nx_pmc_rdrange(2, 12, 0, 0, 0, 9)", "CD")}) {
    window.SetFocus(ID_cmbPmcAddr);
    window.Press(letter);
    window.WaitForText(ID_cmbPmcAddr, letter);
    Read(window);
    EXPECT_EQ(window.Lines(ID_lstData), Lines{std::string("0000\t") + byte});
    EXPECT_TRUE(HasCall(request));
  }
}

TEST_F(PmcRead, Each_pass_shows_the_current_memory) {
  const Controller controller = Serve("pmc_counts D 100 100 reads\n");
  const WindowUnderTest window = Open();
  Fill(window, "100", "1", "5");
  EXPECT_EQ(Read(window), (Lines{"0001 OK", "0002 OK", "0003 OK", "0004 OK", "0005 OK", "(time)"}));
  const Lines fifth = window.Lines(ID_lstData);
  EXPECT_EQ(window.Text(ID_lblCount), "5");
  Fill(window, "100", "1", "1");
  EXPECT_EQ(Read(window), (Lines{"0001 OK", "(time)"}));
  EXPECT_NE(window.Lines(ID_lstData), fifth);
}

TEST_F(PmcRead, A_PMC_error_is_logged_with_its_detail_and_keeps_the_data) {
  const Controller controller = Serve("pmc D 0 0x12\npmc_error D 100 199 5 3\n");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "1");
  Read(window);
  Fill(window, "100", "1", "2");
  EXPECT_EQ(Read(window), (Lines{"0001 ERR Ret=-16,5,3", "0002 ERR Ret=-16,5,3", "(time)"}));
  EXPECT_EQ(window.Lines(ID_lstData), Lines{"0000\t12"});
}

TEST_F(PmcRead, Another_error_is_logged_with_its_code_and_the_run_continues) {
  const Controller controller = Serve("result pmc 3 every 2\n");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "4");
  EXPECT_EQ(Read(window), (Lines{"0001 OK", "0002 ERR Ret=3", "0003 OK", "0004 ERR Ret=3", "(time)"}));
  EXPECT_FALSE(HasCall("nx_pmc_detailerr"));
}

TEST_F(PmcRead, A_failed_connection_shows_a_message_box_and_logs_nothing) {
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "1");
  window.Click(ID_cmdRead);
  const BoxUnderTest box = Program().WaitForBox(kTestTimeOut);
  EXPECT_EQ(box.text, "Allocate Handle error=-102");
  EXPECT_EQ(box.title, "Tarvik");
  EXPECT_EQ(box.icon, "none");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
  ExpectIdle(window);
  EXPECT_TRUE(Log(window).empty());
}

TEST_F(PmcRead, The_longest_read_is_8000_bytes) {
  const Controller controller = Serve("pmc D 7999 0xEE\n");
  const WindowUnderTest window = Open();
  Fill(window, "0", "8000", "1");
  EXPECT_EQ(Read(window), (Lines{"0001 OK", "(time)"}));
  // Not all lines: each costs two messages between processes, which took over half a minute under load.
  EXPECT_EQ(window.LineCount(ID_lstData), 8000);
  window.WaitForLastLine(ID_lstData, "7999\tEE", kSoon);
  EXPECT_TRUE(HasCall("nx_pmc_rdrange(1, 9, 0, 0, 7999, 8008) = 0"));
}

TEST_F(PmcRead, A_longer_read_is_rejected_after_connecting_and_the_handle_is_freed) {
  const Controller controller = Serve("");
  for (const auto& [language, text] : {std::pair("-LANGID 1", "PMC read length error, maximum=8000"),
                                       std::pair("-LANGID -1", "PMC read length error, maximum=8000"),
                                       std::pair("-LANGID 0", "PMC読取長さエラー 最大=8000"),
                                       std::pair("-LOCALEID 1041", "PMC読取長さエラー 最大=8000")}) {
    ForgetCalls();
    const WindowUnderTest window = Open(language);
    Fill(window, "0", "8001", "1");
    window.Click(ID_cmdRead);
    const BoxUnderTest box = Program().WaitForBox();
    EXPECT_EQ(box.text, text) << language;
    Program().Answer(box, BoxButton::Ok);
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
    ExpectIdle(window);
    EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 0 handle=1 open=1)",
                              "nx_freehandle(1) = 0 open=0"}));
  }
}

TEST_F(PmcRead, A_stopped_run_does_not_log_the_time) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "100000", "60000");
  window.Click(ID_cmdRead);
  window.WaitForLastLine(ID_pmc_lstResult, "0001 OK", kSoon);
  EXPECT_FALSE(window.Enabled(ID_cmdRead));
  EXPECT_FALSE(window.Enabled(ID_cmdClose));
  EXPECT_TRUE(window.Enabled(ID_cmdStop));
  EXPECT_TRUE(Main().Enabled(0));
  window.Click(ID_cmdStop);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
  ExpectIdle(window);
  EXPECT_EQ(Log(window), Lines{"0001 OK"});
  EXPECT_EQ(Calls().back(), "nx_freehandle(1) = 0 open=0");
}

TEST_F(PmcRead, The_main_windows_tests_run_between_two_passes) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "100000", "100");
  window.Click(ID_cmdRead);
  window.WaitForLine(ID_pmc_lstResult, "0002 OK", kSoon);
  const Lines known = Main().Lines(ID_lstResult);
  Main().Click(ID_cmdGetInfo);
  EXPECT_TRUE(WaitUntil(kTestTimeOut, [&] { return Main().Lines(ID_lstResult).size() == known.size() + 8; }));
  const size_t passes = Log(window).size();
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Log(window).size() > passes; }));
  window.Click(ID_cmdStop);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
  EXPECT_TRUE(Calls().back().ends_with(" open=0"));
}

TEST_F(PmcRead, Neither_window_closes_during_a_run) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "100000", "60000");
  window.Click(ID_cmdRead);
  window.WaitForLastLine(ID_pmc_lstResult, "0001 OK", kSoon);
  window.Close();
  Main().Close();
  window.Settle();
  EXPECT_TRUE(Program().HasWindow("frmPmcTest"));
  EXPECT_TRUE(Program().HasWindow("Form1"));
  window.Click(ID_cmdStop);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_cmdRead); }));
  Main().Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(PmcRead, A_count_below_1_reads_nothing) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Open();
  Fill(window, "0", "1", "0");
  EXPECT_EQ(Read(window), Lines{"(time)"});
  EXPECT_FALSE(HasCall("nx_pmc_rdrange"));
}

TEST_F(PmcRead, After_a_cable_is_pulled_during_a_run_every_pass_fails) {
  const Controller controller = Serve("");
  const WindowUnderTest window = Open();
  Main().SetText(ID_txtNxlibTimeOut, "1");
  Fill(window, "0", "1", "4", "1000");
  window.Click(ID_cmdRead);
  window.WaitForLine(ID_pmc_lstResult, "0001 OK", kSoon);
  Net().PullCable(Host::Near);
  EXPECT_TRUE(WaitUntil(kTestTimeOut, [&] {
    try {
      return window.Enabled(ID_cmdRead);
    } catch (const LabError&) {
      return false;  // a library call blocks the program
    }
  }));
  const Lines log = Log(window);
  ASSERT_EQ(log.size(), 5U);
  EXPECT_TRUE(log.at(3).starts_with("0004 ERR Ret=-10")) << log.at(3);
  EXPECT_EQ(log.back(), "(time)");
  EXPECT_TRUE(Calls().back().ends_with(" open=0"));
}

}  // namespace
}  // namespace tarvik::lab
