// What a saved report may and may not say, and the name of its file.

#include "tests/unit/report/saved_text.h"

namespace tarvik::report {
namespace {

using test::Count;
using test::ReportBuilder;
using test::RunBuilder;
using test::TextOf;

TEST(SavedReportTest, What_an_earlier_run_saw_is_not_a_result_of_this_one) {
  RunBuilder run;
  run.Name(L"cnc7", L"192.168.1.100").Pc(true).TargetPinged({test::Answered()}).FtpListed(3, L"226 Done.");
  WithCard(run).run().target = L"cnc7";
  run.Only(Rung::CncLibrary).Cnc(CncCall::Connect, -16, 10);
  const std::string text = TextOf(run.run());
  EXPECT_NE(text.find(R"(
PC - ? - CNC
CNC === x NEXAL2   x: fails
CNC - ? - K7
CNC - ? - FTP
PC: ?
CNC: cnc7 (?)

Tarvik 1.1 | cnc7 | FAIL NEXAL2 | TCP 8193, error -16 | 14:32
)"),
            std::string::npos)
      << text;
  for (const char* const rung : {"Name", "PC", "Gateway", "Target", "FTP"})
    EXPECT_NE(text.find(std::string("\n-     ") + rung + ": Not part of this run."), std::string::npos)
        << text;
  EXPECT_NE(text.find("\n?                 not read in this run\n"), std::string::npos) << text;
}

TEST(SavedReportTest, A_rung_that_tested_another_address_says_so) {
  report::Run run = test::AllGoodRun();
  run.otherTarget[static_cast<size_t>(Rung::Ftp)] = L"192.168.1.101";
  const std::string text = TextOf(run);
  EXPECT_NE(text.find("\nCNC === K7\nCNC - ? - FTP\n"), std::string::npos) << text;
  EXPECT_NE(text.find("3 entries listed. Tested was 192.168.1.101.\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n- TCP 8193 192.168.1.10 -> 192.168.1.100\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\n- TCP 21 192.168.1.10 -> 192.168.1.101\n"), std::string::npos) << text;
}

TEST(SavedReportTest, Boxes_have_the_button_that_was_pressed) {
  report::Run run = test::AllGoodRun();
  run.boxes = {{0, 0, L"At once", BoxAnswer::Ok}, {1, 1, L"Type mismatch", BoxAnswer::Error}};
  run.boxes.push_back({2, 3, std::wstring(1001, L'x'), BoxAnswer::Yes});
  const std::string text = TextOf(run);
  EXPECT_NE(text.find("At once\n         [OK] 0.000\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Type mismatch\n         [error]\n"), std::string::npos) << text;
  EXPECT_NE(text.find("xxx...\n         [Yes] 3.000\n"), std::string::npos) << text;
}

TEST(SavedReportTest, What_is_left_out_is_named) {
  report::Run run = test::AllGoodRun();
  run.facts.pc.way.cards.assign(107, test::EthernetCard());
  ReportBuilder builder(run);
  builder.source.libraries.assign(200, L"a.dll 1.0");
  const std::string text = TextOf(builder.source);
  EXPECT_NE(text.find("\n...               [... 7 left out]\n"), std::string::npos);
  EXPECT_NE(text.find("\n- a.dll 1.0\n- ...\n\n"), std::string::npos);
}

TEST(SavedReportTest, Before_the_first_run_no_settings_are_claimed) {
  EXPECT_EQ(TextOf(report::Run()).find("Access code"), std::string::npos);
  EXPECT_NE(TextOf(test::AllGoodRun()).find("Access code"), std::string::npos);
}

TEST(SavedReportTest, A_secret_that_is_an_everyday_word_does_not_hide_what_Tarvik_itself_says) {
  report::Run run = test::NoListingRun();
  run.facts.ftp.loginReply = L"230-Welcome, cnc.\r\nBye, ftp user.\r\n230 ftp 1 at 192.168.1.1";
  test::AddLines(run,
                 {L"CNC Type:31iB", L"FTP Connect test...", L"Bye, ftp user.", L"230 ftp 1 at 192.168.1.1"});
  ReportBuilder builder(run);
  builder.source.secrets = {L"ftp", L"cnc", L"1", L"230"};
  const std::string text = TextOf(builder.source);
  for (const char* const line : {"  CNC Type:31iB\n", "  FTP Connect test...\n", "  Bye, *** user.\n",
                                 "  230 *** *** at 192.168.1.1\n", "  331 Password"})
    EXPECT_NE(text.find(line), std::string::npos) << line;
  EXPECT_EQ(Count(text, "*** replaces"), 1U);
  EXPECT_EQ(Count(TextOf(test::NoListingRun()), "*** replaces"), 0U);
}

TEST(SavedReportTest, Secrets_that_a_server_repeats_are_masked_in_lines_and_boxes) {
  report::Run run = test::NoListingRun();
  run.boxes.push_back({1, 2, L"530 User anna cannot log in with hunter2", BoxAnswer::Ok});
  ReportBuilder builder(run);
  builder.source.secrets = {L"anna", L"hunter2"};
  for (const std::string& report : {TextOf(builder.source), SavedReportHtml(builder.source)}) {
    EXPECT_NE(report.find("331 Password required for ***."), std::string::npos);
    EXPECT_NE(report.find("230 User *** logged in; annabel too."), std::string::npos);
    EXPECT_NE(report.find("530 User *** cannot log in with ***"), std::string::npos);
    EXPECT_EQ(report.find("hunter2"), std::string::npos);
  }
}

std::wstring FileNameOf(const report::Run& run, AnswerLanguage language = AnswerLanguage::English) {
  return ReportFileName(ReportBuilder(run, language).source);
}

TEST(ReportFileNameTest, It_has_target_date_and_result_in_every_language_alike) {
  EXPECT_EQ(FileNameOf(test::SilentTargetRun()), L"Tarvik_192.168.1.100_2026-11-22_1432_FAIL-Target");
  EXPECT_EQ(FileNameOf(test::DeadGatewayRun(), AnswerLanguage::Japanese),
            L"Tarvik_192.168.5.100_2026-11-22_1432_FAIL-Gateway");
  EXPECT_EQ(FileNameOf(test::AllGoodRun()), L"Tarvik_192.168.1.100_2026-11-22_1432_OK");
  EXPECT_EQ(FileNameOf(test::NoListingRun()), L"Tarvik_192.168.1.100_2026-11-22_1432_DOUBT-FTP");
  EXPECT_EQ(FileNameOf(test::StoppedRun()), L"Tarvik_192.168.1.100_2026-11-22_1432_STOPPED");
  EXPECT_EQ(FileNameOf({}), L"Tarvik_-_2026-11-22_1432_NOT-TESTED");
}

TEST(ReportFileNameTest, It_has_the_time_of_the_run_and_not_that_of_the_report) {
  report::Run run = test::SilentTargetRun();
  run.endedAt = {2026, 11, 21, 9, 5};
  EXPECT_EQ(FileNameOf(run), L"Tarvik_192.168.1.100_2026-11-21_0905_FAIL-Target");
  const std::string text = TextOf(run);
  EXPECT_NE(text.find(" | 09:05\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\nReport made       2026-11-22 14:32 UTC+09:00\n"), std::string::npos) << text;
}

TEST(ReportFileNameTest, It_has_no_character_that_Windows_forbids_and_a_bounded_length) {
  report::Run run = test::SilentTargetRun();
  run.target = L"C:\\a/b*c?d\"e<f>g|h i\x1F\u202E";
  EXPECT_EQ(FileNameOf(run), L"Tarvik_C--a-b-c-d-e-f-g-h-i--_2026-11-22_1432_FAIL-Target");
  run.target = L"CON";
  EXPECT_EQ(FileNameOf(run), L"Tarvik_CON_2026-11-22_1432_FAIL-Target");
  run.target = L"工作機械";
  EXPECT_EQ(FileNameOf(run), L"Tarvik_工作機械_2026-11-22_1432_FAIL-Target");
  run.target = std::wstring(L"a\x85\u202E") + std::wstring(1, L'\xD83D') + L"b";
  EXPECT_EQ(FileNameOf(run), L"Tarvik_a---b_2026-11-22_1432_FAIL-Target");
  run.target.assign(10'000, L'x');
  EXPECT_LT(FileNameOf(run).size(), 100U);
}

}  // namespace
}  // namespace tarvik::report
