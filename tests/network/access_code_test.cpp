// The access code: when it is passed to the library, and what happens when it is wrong or missing.

#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kWrongCode[] =
    "The CNC did not accept the access code.\r\n"
    "Check the access code that is set in the CNC and type it again.";
constexpr char kWrongCodeInJapanese[] =
    "NCがｱｸｾｽｺｰﾄﾞを受け付けませんでした。\r\n"
    "NCに設定されたｱｸｾｽｺｰﾄﾞを確認し、入力し直してください。";

class AccessCode : public CncTest<AccessCode> {
 protected:
  WindowUnderTest StartWithCode(const std::string& code, const std::string& commandLine = {}) {
    const WindowUnderTest window = StartOnPage(commandLine);
    window.Click(ID_chkAccessCode);
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Enabled(ID_txtAccessCode); }));
    window.SetText(ID_txtAccessCode, code);
    return window;
  }

  /// The text of the only message box so far, which must have no icon and only an OK button.
  std::string OnlyBox() {
    if (boxes_.size() != 1) return std::to_string(boxes_.size()) + " boxes";
    EXPECT_EQ(boxes_.front().title, "Tarvik");
    EXPECT_EQ(boxes_.front().icon, "none");
    EXPECT_EQ(boxes_.front().buttons.size(), 1U);
    std::string text = boxes_.front().text;
    boxes_.clear();
    return text;
  }
};

TEST_F(AccessCode, Without_one_0_is_tried_and_the_refusal_is_reported) {
  const Controller controller = Serve(BenchScenario("access_code"));
  EXPECT_EQ(TestLibrary(), Lines{"Allocate Handle error=7"});
  EXPECT_EQ(OnlyBox(), kWrongCode);
  EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 7 handle=0 open=0)",
                            R"(nx_allochandle_code("192.168.1.100", 8193, "0", 5) = 7 handle=0 open=0)"}));
}

TEST_F(AccessCode, Refusal_is_reported_in_the_language_of_the_file_in_every_mode) {
  const Controller controller = Serve(BenchScenario("access_code"));
  for (const auto& [language, text] : {std::pair("-LANGID 1", kWrongCode), std::pair("-LANGID 0", kWrongCode),
                                       std::pair("-LOCALEID 1041", kWrongCodeInJapanese)}) {
    EXPECT_EQ(TestLibrary(language), Lines{"Allocate Handle error=7"});
    EXPECT_EQ(OnlyBox(), text) << language;
  }
}

TEST_F(AccessCode, A_controller_with_code_0_needs_none) {
  const Controller controller = Serve("access_code 0\n");
  EXPECT_EQ(TestLibrary().size(), 6U);
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(AccessCode, A_typed_code_is_not_passed_while_its_check_box_is_clear) {
  const Controller controller = Serve(BenchScenario("access_code"));
  const WindowUnderTest window = StartWithCode("12345678");
  window.Click(ID_chkAccessCode);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return !window.Enabled(ID_txtAccessCode); }));
  EXPECT_EQ(TestLibrary(window), Lines{"Allocate Handle error=7"});
  EXPECT_EQ(OnlyBox(), kWrongCode);
  EXPECT_TRUE(HasCall(R"(nx_allochandle_code("192.168.1.100", 8193, "0", 5) = 7)"));
}

TEST_F(AccessCode, The_right_one_opens_the_controller) {
  const Controller controller = Serve(BenchScenario("access_code"));
  EXPECT_EQ(TestLibrary(StartWithCode("12345678")).size(), 6U);
  EXPECT_TRUE(boxes_.empty());
  EXPECT_EQ(
      Calls(),
      (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 7 handle=0 open=0)",
             R"(nx_allochandle_code("192.168.1.100", 8193, "12345678", 5) = 0 handle=1 open=1)",
             "nx_getoptions1(1, 0) = 0 open=1", "nx_sysinfo(1) = 0 open=1", "nx_freehandle(1) = 0 open=0"}));
}

TEST_F(AccessCode, A_wrong_one_is_rejected) {
  const Controller controller = Serve(BenchScenario("access_code"));
  EXPECT_EQ(TestLibrary(StartWithCode("0012")), Lines{"Allocate Handle error=7"});
  EXPECT_EQ(OnlyBox(), kWrongCode);
  EXPECT_TRUE(HasCall(R"(nx_allochandle_code("192.168.1.100", 8193, "0012", 5) = 7)"));
}

TEST_F(AccessCode, None_is_passed_to_a_controller_without_one) {
  const Controller controller = Serve("");
  EXPECT_EQ(TestLibrary(StartWithCode("12345678")).size(), 6U);
  EXPECT_FALSE(HasCall("nx_allochandle_code"));
}

TEST_F(AccessCode, Another_failure_of_the_second_attempt_shows_no_box) {
  // The only connection that the controller accepts is the attempt without a code.
  const Controller controller = Serve("access_code 12345678\nconnections 1\n");
  EXPECT_EQ(TestLibrary(StartWithCode("12345678")), Lines{"Allocate Handle error=-102"});
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(AccessCode, An_empty_one_or_0_is_rejected_before_any_library_call) {
  const Controller controller = Serve(BenchScenario("access_code"));
  for (const char* code : {"", "0", "00000000"}) {
    const WindowUnderTest window = StartWithCode(code);
    const Lines before = window.Lines(ID_lstResult);
    EXPECT_EQ(ClickAndFollow(window, ID_cmdGetInfo), before) << code;
    EXPECT_EQ(OnlyBox(), "Type the access code (up to 8 digits, not 0).") << code;
  }
  EXPECT_TRUE(Calls().empty());
}

TEST_F(AccessCode, The_request_to_type_one_is_in_Japanese_too) {
  ClickAndFollow(StartWithCode("", "-LOCALEID 1041"), ID_cmdGetInfo);
  EXPECT_EQ(OnlyBox(), "ｱｸｾｽｺｰﾄﾞを入力してください (0以外、数字8桁まで)。");
}

TEST_F(AccessCode, One_from_the_command_line_opens_the_controller_in_the_ladder) {
  const Controller controller = Serve(BenchScenario("access_code"));
  // The bench's code-conversion library reads it backwards.
  EXPECT_EQ(AfterTestLine(RunAtStart("-PING_N 1 -X 2 192.168.1.100;87654321")).size(), 6U);
  EXPECT_TRUE(boxes_.empty());
}

}  // namespace
}  // namespace tarvik::lab
