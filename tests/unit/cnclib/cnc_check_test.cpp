#include "cnclib/cnc_check.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;
using Calls = std::vector<std::string>;

const Lines kHeading = {L"", L"Get System Information test...."};

Lines WithHeading(const Lines& lines) {
  Lines all = kHeading;
  all.insert(all.end(), lines.begin(), lines.end());
  return all;
}

class LibraryTest : public testing::Test, protected FakeContext {
 protected:
  LibraryTest() {
    files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
    resource.Initialize(1033, L"C:\\Data", L"Tarvik.exe");
    for (int id = 112; id <= 152; ++id)
      system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|" + std::to_string(id)] =
          "text " + std::to_string(id);
  }
  /// After every test, no handle is allocated and the hourglass is gone.
  ~LibraryTest() override {
    EXPECT_TRUE(library.AllGivenBack());
    EXPECT_FALSE(busy);
  }

  bool Run() {
    return RunLibraryTest(
        context, library, codePage, [this](bool on) { busy = on; }, target, accessCode, missing, options);
  }
  const Lines& Listed() { return results.Lines(); }

  FakeCncLibrary library;
  bool busy = false;
  CncTarget target{L"192.168.1.100", {L"8193", L"TCP port"}, {L"10", L"Time-out"}};
  std::optional<std::wstring> accessCode;
  bool missing = false;
  uint32_t options = 0;
};

TEST_F(LibraryTest, A_missing_library_passes_without_a_line_or_a_call) {
  missing = true;
  EXPECT_TRUE(Run());
  EXPECT_TRUE(Listed().empty());
  EXPECT_TRUE(library.calls.empty());
}

TEST_F(LibraryTest, An_empty_address_fails_without_a_line_or_a_call) {
  target.address.clear();
  EXPECT_FALSE(Run());
  EXPECT_TRUE(Listed().empty());
  EXPECT_TRUE(library.calls.empty());
}

TEST_F(LibraryTest, An_empty_or_zero_access_code_is_reported_and_nothing_is_tried) {
  for (const wchar_t* code : {L"", L"0", L"00000000", L"  ", L"abc", L"-5"}) {
    accessCode = code;
    boxes.boxes.clear();
    EXPECT_FALSE(Run()) << code;
    EXPECT_EQ(boxes.Texts(), Lines{L"text 152"}) << code;
    EXPECT_EQ(boxes.boxes[0].title, L"");
  }
  EXPECT_TRUE(Listed().empty());
  EXPECT_TRUE(library.calls.empty());
}

TEST_F(LibraryTest, The_text_about_a_missing_access_code_is_read_from_the_file_in_every_mode) {
  accessCode = L"0";
  for (const LanguageMode each : {kBuiltInEnglish, kBuiltInJapanese, kLanguageFile}) {
    mode = each;
    Run();
  }
  EXPECT_EQ(boxes.Texts(), Lines(3, L"text 152"));
}

TEST_F(LibraryTest, The_texts_about_the_access_code_are_built_in_when_the_file_has_none) {
  system.profile.clear();
  const std::pair<LanguageMode, const wchar_t * MessageRow::*> kLanguages[] = {
      {kBuiltInEnglish, &MessageRow::english},
      {kBuiltInJapanese, &MessageRow::japanese},
      {kLanguageFile, &MessageRow::english}};
  for (const auto& [each, language] : kLanguages) {
    mode = each;
    boxes.boxes.clear();
    accessCode = L"0";
    Run();
    accessCode.reset();
    library.openResult = library.codeResult = 7;
    Run();
    EXPECT_EQ(boxes.Texts(), (Lines{RowOf(Message::AccessCodeMissing).*language,
                                    std::wstring(RowOf(Message::AccessCodeWrong).*language) + L"\r\n" +
                                        RowOf(Message::AccessCodeWrongHint).*language}));
  }
}

TEST_F(LibraryTest, An_access_code_may_have_any_number_of_digits) {
  accessCode = L"99999999999999999999";
  library.openResult = 7;
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.calls[1], "nx_allochandle_code(192.168.1.100, 8193, 99999999999999999999, 10)");
}

TEST_F(LibraryTest, A_good_run_makes_each_call_once_with_its_arguments) {
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.calls, (Calls{"nx_allochandle3(192.168.1.100, 8193, 10)", "nx_getoptions1(5, 0)",
                                  "nx_sysinfo(5)", "nx_freehandle(5)"}));
  EXPECT_EQ(options, 1U);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(LibraryTest, A_good_run_shows_the_system_information) {
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed(), WithHeading({L"CNC Type\t31iB", L"M/T     \tMM", L"Serise  \tD411", L"Version \t0102",
                                   L"Max Axes\t8", L"Axes    \t 3"}));
}

TEST_F(LibraryTest, The_hourglass_is_shown_and_events_run_before_the_connection) {
  pump.onEvents = [&] {
    EXPECT_TRUE(busy);
    EXPECT_EQ(Listed(), kHeading);
    EXPECT_TRUE(library.calls.empty());
  };
  EXPECT_TRUE(Run());
  EXPECT_EQ(pump.eventRounds, 1);
}

TEST_F(LibraryTest, A_stop_before_the_connection_ends_the_test) {
  pump.onEvents = [&] { pump.stop = true; };
  EXPECT_FALSE(Run());
  EXPECT_EQ(Listed(), kHeading);
  EXPECT_TRUE(library.calls.empty());
}

TEST_F(LibraryTest, A_failed_connection_is_one_line_in_every_language) {
  for (const LanguageMode each : {kBuiltInEnglish, kBuiltInJapanese, kLanguageFile}) {
    mode = each;
    results.ClearList();
    library.openResult = -16;
    EXPECT_FALSE(Run());
    EXPECT_EQ(Listed(), WithHeading({L"Allocate Handle error=-16"}));
  }
  EXPECT_EQ(library.Count("nx_allochandle_code"), 0);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(LibraryTest, A_missing_access_code_is_sent_as_zero_when_the_controller_asks) {
  library.openResult = 7;
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.calls[1], "nx_allochandle_code(192.168.1.100, 8193, 0, 10)");
}

TEST_F(LibraryTest, The_access_code_is_sent_as_typed_and_only_when_the_controller_asks) {
  accessCode = L"00123";
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.Count("nx_allochandle_code"), 0);
  library.openResult = 7;
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.Count("nx_allochandle_code"), 1);
  EXPECT_TRUE(std::count(library.calls.begin(), library.calls.end(),
                         "nx_allochandle_code(192.168.1.100, 8193, 00123, 10)"));
}

TEST_F(LibraryTest, A_rejected_access_code_is_a_box_and_a_line) {
  library.openResult = library.codeResult = 7;
  bool boxFirst = false;
  boxes.onShow = [&] { boxFirst = Listed() == kHeading; };
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.Texts(), Lines{L"text 150\r\ntext 151"});
  EXPECT_TRUE(boxFirst);
  EXPECT_EQ(Listed(), WithHeading({L"Allocate Handle error=7"}));
}

TEST_F(LibraryTest, The_box_about_a_rejected_access_code_is_read_from_the_file_in_every_mode) {
  library.openResult = library.codeResult = 7;
  for (const LanguageMode each : {kBuiltInEnglish, kBuiltInJapanese, kLanguageFile}) {
    mode = each;
    Run();
  }
  EXPECT_EQ(boxes.Texts(), Lines(3, L"text 150\r\ntext 151"));
}

TEST_F(LibraryTest, Any_other_failure_of_the_second_try_is_a_line_without_a_box) {
  library.openResult = 7;
  library.codeResult = -8;
  EXPECT_FALSE(Run());
  EXPECT_EQ(Listed(), WithHeading({L"Allocate Handle error=-8"}));
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(LibraryTest, A_failed_option_check_is_a_line_and_an_empty_line) {
  library.optionsResult = -3;
  const std::pair<LanguageMode, const wchar_t*> expected[] = {{kBuiltInEnglish, L"Option check error=-3"},
                                                              {kBuiltInJapanese, L"ｵﾌﾟｼｮﾝ確認ｴﾗｰ=-3"},
                                                              {kLanguageFile, L"text 112"}};
  for (const auto& [language, line] : expected) {
    mode = language;
    results.ClearList();
    EXPECT_FALSE(Run());
    EXPECT_EQ(Listed(), WithHeading({line, L""}));
  }
  EXPECT_EQ(library.Count("nx_sysinfo"), 0);
}

TEST_F(LibraryTest, A_controller_without_the_option_fails_with_only_an_empty_line_in_Japanese) {
  library.options = 0xFFFFFFFE;
  const std::pair<LanguageMode, Lines> expected[] = {
      {kBuiltInEnglish, {L"No option (Extended drivers and libraries function)", L""}},
      {kBuiltInJapanese, {L""}},
      {kLanguageFile, {L"text 113", L""}}};
  for (const auto& [language, lines] : expected) {
    mode = language;
    results.ClearList();
    EXPECT_FALSE(Run());
    EXPECT_EQ(Listed(), WithHeading(lines));
    EXPECT_EQ(options, 0xFFFFFFFE);
  }
  EXPECT_EQ(library.Count("nx_sysinfo"), 0);
}

TEST_F(LibraryTest, Failed_system_information_is_a_line_and_an_empty_line) {
  library.infoResult = 6;
  const std::pair<LanguageMode, const wchar_t*> expected[] = {
      {kBuiltInEnglish, L"Get System Information error=6"},
      {kBuiltInJapanese, L"NCｼｽﾃﾑ情報取得ｴﾗｰ=6"},
      {kLanguageFile, L"text 114"}};
  for (const auto& [language, line] : expected) {
    mode = language;
    results.ClearList();
    EXPECT_FALSE(Run());
    EXPECT_EQ(Listed(), WithHeading({line, L""}));
  }
}

TEST_F(LibraryTest, The_type_is_trimmed_and_only_GL_is_renamed) {
  library.info.addinfo = 0;
  library.info.model_type[0] = ' ';
  library.info.model_type[1] = 'G';
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed()[2], L"CNC Type\tG");
}

TEST_F(LibraryTest, A_generation_without_a_letter_is_shown_in_brackets) {
  library.info.addinfo = 6912;
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed()[2], L"CNC Type\t31i(6912)");
}

TEST_F(LibraryTest, Texts_end_with_their_field_or_at_a_NUL) {
  library.info.machine_type[0] = 'T';
  library.info.machine_type[1] = '\0';
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed()[3], L"M/T     \tT");
  EXPECT_EQ(Listed()[4], L"Serise  \tD411");
  EXPECT_EQ(Listed()[7], L"Axes    \t 3");
}

TEST_F(LibraryTest, Half_a_double_byte_character_at_the_end_of_a_field_reads_nothing_beyond) {
  std::fill_n(library.info.axes_text, 2, '\x81');
  library.info.version_code[3] = '\x81';
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed().size(), 8U);
}

TEST_F(LibraryTest, An_option_word_that_the_library_does_not_set_is_0) {
  library.fillsRecords = false;
  options = 1;
  EXPECT_FALSE(Run());
  EXPECT_EQ(options, 0U);
  EXPECT_EQ(library.Count("nx_sysinfo"), 0);
}

TEST_F(LibraryTest, A_record_that_the_library_does_not_set_shows_empty_fields) {
  // The library sets the options, but not the system information.
  library.onCall = [this] { library.fillsRecords = !library.calls.back().starts_with("nx_sysinfo"); };
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed(), WithHeading({L"CNC Type\t", L"M/T     \t", L"Serise  \t", L"Version \t", L"Max Axes\t0",
                                   L"Axes    \t"}));
}

TEST_F(LibraryTest, A_negative_number_of_axes_is_shown) {
  library.info.max_axes = -1;
  EXPECT_TRUE(Run());
  EXPECT_EQ(Listed()[6], L"Max Axes\t-1");
}

TEST_F(LibraryTest, Handle_0_with_a_good_result_is_used_and_not_freed) {
  library.nextHandle = 0;
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.Names(), (Calls{"nx_allochandle3", "nx_getoptions1", "nx_sysinfo"}));
}

TEST_F(LibraryTest, Handles_returned_with_a_failure_are_freed) {
  library.openResult = library.codeResult = 7;
  library.givesHandleOnFailure = true;
  EXPECT_FALSE(Run());
  EXPECT_EQ(library.calls, (Calls{"nx_allochandle3(192.168.1.100, 8193, 10)", "nx_freehandle(5)",
                                  "nx_allochandle_code(192.168.1.100, 8193, 0, 10)", "nx_freehandle(6)"}));
}

TEST_F(LibraryTest, A_missing_function_throws_and_leaks_nothing) {
  for (const char* call : {"nx_allochandle3", "nx_allochandle_code", "nx_getoptions1", "nx_sysinfo"}) {
    library.missing = {call};
    library.openResult = call == std::string("nx_allochandle_code") ? 7 : 0;
    EXPECT_THROW(Run(), RuntimeError) << call;
    EXPECT_TRUE(library.AllGivenBack()) << call;
    EXPECT_FALSE(busy) << call;
  }
}

TEST_F(LibraryTest, A_library_that_cannot_free_a_handle_does_not_end_the_program) {
  library.missing = {"nx_freehandle"};
  EXPECT_TRUE(Run());
  library.out.clear();
}

TEST_F(LibraryTest, A_port_or_time_out_that_is_not_a_16_bit_number_throws_before_any_call) {
  for (const wchar_t* text : {L"", L"port", L"32768", L"8193x", L"1.5"}) {
    target.port.text = text;
    EXPECT_THROW(Run(), RuntimeError) << text;
    target.port.text = L"8193";
    target.timeOut.text = text;
    EXPECT_THROW(Run(), RuntimeError) << text;
    target.timeOut.text = L"10";
  }
  EXPECT_TRUE(library.calls.empty());
}

TEST_F(LibraryTest, The_address_is_converted_to_the_code_page) {
  target.address = L"工場";
  EXPECT_TRUE(Run());
  EXPECT_EQ(library.calls[0], "nx_allochandle3(" + codePage.ToAnsi(L"工場") + ", 8193, 10)");
}

}  // namespace
}  // namespace tarvik::test
