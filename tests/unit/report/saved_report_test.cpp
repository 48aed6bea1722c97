#include "report/saved_report.h"

#include <gtest/gtest.h>

#include "report/way.h"
#include "tests/unit/report/saved_text.h"

namespace tarvik::report {
namespace {

using test::Count;
using test::ReportBuilder;
using test::ReportReader;
using test::RunBuilder;
using test::TextOf;

/// The text up to the rungs.
std::string TopOf(const report::Run& run, AnswerLanguage language = AnswerLanguage::English) {
  const std::string text = TextOf(run, language);
  return text.substr(0, text.find("---"));
}

TEST(SavedReportTest, A_dead_gateway_whole) {
  report::Run run = test::DeadGatewayRun();
  run.settings.ftpPasswordSet = true;
  run.boxes.push_back({2, 3.5, L"Go on?\r\nReally?", BoxAnswer::No});
  run.boxes.push_back({4, 0, L"Open", BoxAnswer::Open});
  run.linesNotKept = 7;
  EXPECT_EQ(TextOf(run), R"(
Gateway silent: check its address, cable, power.

PC === x GW - ? - CNC   x: silent
CNC - ? - NEXAL2
CNC - ? - FTP
PC: 192.168.1.10/24, Ethernet 2
GW: 192.168.1.1
CNC: 192.168.5.100

Tarvik 1.1 | 192.168.5.100 | FAIL Gateway [110] | 0 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32

What was tested
---------------
OK    Name: 192.168.5.100 is an address, so nothing was looked up.
OK    PC: Address 192.168.1.10, mask 255.255.255.0.
FAIL  Gateway: 192.168.1.1 answered none of 4 echoes. Check its address, cable, power.
-     Target: Not reached in this run.
-     NEXAL2: Not reached in this run.
-     FTP: Not reached in this run.

Do next
-------
1. Compare the gateway (192.168.1.1) and the PC (192.168.1.10) with the network plan.
2. Look at the light at the PC's network socket. Off: plug in or change the cable.
3. Check that the hub or switch has power. Try another of its sockets.
4. Check that the gateway has power and its lights are on.
5. Run the test again.

IT must allow
-------------
- ICMP echo 192.168.1.10 -> 192.168.1.1
- ICMP echo 192.168.1.10 -> 192.168.5.100
- TCP 8193 192.168.1.10 -> 192.168.5.100
- TCP 21 192.168.1.10 -> 192.168.5.100
- TCP from port 20 of 192.168.5.100 to any port of 192.168.1.10, program Tarvik.exe (FTP listing)

Lines, with seconds since the start
-----------------------------------
    0.000  GateWay (192.168.1.1) PING test ....
    0.500  Cannot ping to the Gateway
    1.000  Please check Gateway's address, cable and power
[... 7 lines left out]

Message boxes, with seconds and answer
--------------------------------------
2.000    Go on? 
         Really?
         [No] 3.500
4.000    Open
         [not answered yet]

Settings of the run
-------------------
Target            192.168.5.100
Ping count        4
TCP port          8193
Time-out (s)      10
Access code       not set
FTP user name     not set
FTP password      set
Options           0x0

Network cards of the PC
-----------------------
Ethernet 2        cable, link up, Windows uses it for the target
                  192.168.1.10, mask 255.255.255.0, gateway 192.168.1.1
                  Contoso Gigabit Adapter

Program and libraries
---------------------
- Tarvik 1.1
- General edition
- Windows 10.0.19045
- NxLib32.dll 5.1.2.0
- k7api.dll not found

Date
----
Run began         2026/11/22 14:31:50
Run ended         2026/11/22 14:31:58
Seconds           8.125
Report made       2026-11-22 14:32 UTC+09:00
)");
}

TEST(SavedReportTest, All_good_on_the_own_subnet_has_no_gateway_in_the_picture) {
  EXPECT_EQ(TopOf(test::AllGoodRun()), R"(
All 6 tests good.

PC === CNC
CNC === NEXAL2
CNC === K7
CNC === FTP
PC: 192.168.1.10/24, Ethernet 2
CNC: 192.168.1.100

Tarvik 1.1 | 192.168.1.100 | OK | 4 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32

What was tested
)");
}

TEST(SavedReportTest, A_silent_target) {
  EXPECT_EQ(TopOf(test::SilentTargetRun()), R"(
Target silent: check address, cable, power.

PC === x CNC   x: silent
CNC - ? - NEXAL2
CNC - ? - K7
CNC - ? - FTP
PC: 192.168.1.10/24, Ethernet 2
CNC: 192.168.1.100

Tarvik 1.1 | 192.168.1.100 | FAIL Target [115] | 0 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32

What was tested
)");
}

TEST(SavedReportTest, A_silent_target_after_a_good_gateway) {
  RunBuilder run;
  run.run().target = L"cnc-line-4-cell-17.plant.example";
  run.Name(run.run().target, L"192.168.5.100").Pc(false).GatewayPinged(RunBuilder::From(L"192.168.1.1"));
  run.TargetPinged({RunBuilder::Lost()});
  EXPECT_EQ(TopOf(run.run()), R"(
Gateway good, target silent: check its power, gateway.

PC === GW === x CNC   x: silent
CNC - ? - NEXAL2
CNC - ? - K7
CNC - ? - FTP
PC: 192.168.1.10/24
GW: 192.168.1.1
CNC: cnc-line-4-cell-1..., 192.168.5.100

Tarvik 1.1 | cnc-line-4-cell-17.plant.example (192.168.5.100) | FAIL Target | 0 of 1 | from 192.168.1.10/24 | 14:32

What was tested
)");
}

TEST(SavedReportTest, A_server_without_a_listing_in_Japanese) {
  EXPECT_EQ(TopOf(test::NoListingRun(), AnswerLanguage::Japanese), R"(
FTPの一覧が届かない。ファイアウォールでTarvikを許可。

PC === 相手
相手 - ? - NEXAL2
相手 - ? - K7
相手 === ! FTP   !: 一覧なし
PC: 192.168.1.10/24, Ethernet 2
相手: 192.168.1.100

Tarvik 1.1 | 192.168.1.100 | 要確認 FTP | FTP応答コード425 | PC 192.168.1.10/24 Ethernet 2 | 14:32

テスト結果
)");
}

TEST(SavedReportTest, A_cable_that_is_out_shows_on_the_link_of_the_PC) {
  EXPECT_EQ(TopOf(test::CableOutRun()), R"(
Cable of "Ethernet 2" is out: plug it into the PC.

PC === x CNC   x: cable out
CNC - ? - NEXAL2
CNC - ? - K7
CNC - ? - FTP
PC: 192.168.1.10/24, Ethernet 2
CNC: 192.168.1.100

Tarvik 1.1 | 192.168.1.100 | FAIL PC | from 192.168.1.10/24 Ethernet 2 | 14:32

What was tested
)");
  EXPECT_EQ(Count(TextOf(test::CableOutRun()), "cable, link down\n"), 1U);
}

TEST(SavedReportTest, Before_the_first_run_and_after_a_stop_nothing_is_guessed) {
  EXPECT_EQ(TopOf({}), R"(
No test has run yet.

PC - ? - CNC
CNC - ? - NEXAL2
CNC - ? - FTP
PC: ?
CNC: ?

Tarvik 1.1 | ? | NOT TESTED | 14:32

What was tested
)");
  EXPECT_EQ(TopOf(test::StoppedRun()), R"(
Stopped. Nothing is proven.

PC - ? - CNC
CNC - ? - NEXAL2
CNC - ? - K7
CNC - ? - FTP
PC: 192.168.1.10/24, Ethernet 2
CNC: 192.168.1.100

Tarvik 1.1 | 192.168.1.100 | STOPPED | 0 of 1 | from 192.168.1.10/24 Ethernet 2 | 14:32

What was tested
)");
}

TEST(SavedReportTest, A_missing_gateway_is_unknown_and_an_unusable_one_has_its_address) {
  RunBuilder none;
  none.Address(L"172.16.0.9").Pc(false, L"192.168.1.10", L"255.255.255.0", L"");
  none.Gateway(GatewayResult::NoneConfigured);
  EXPECT_NE(TopOf(none.run()).find("\nPC === x GW - ? - CNC   x: none set\n"), std::string::npos);
  EXPECT_NE(TopOf(none.run()).find("\nGW: ?\n"), std::string::npos);
  RunBuilder outside;
  outside.Address(L"172.16.0.9").Pc(false, L"192.168.1.10", L"255.255.255.0", L"10.0.0.1");
  outside.Gateway(GatewayResult::NoneUsable);
  EXPECT_NE(TopOf(outside.run()).find("\nGW: 10.0.0.1\n"), std::string::npos);
}

TEST(SavedReportTest, Every_failed_or_doubtful_finding_has_a_word_on_its_link) {
  for (int index = 0; index < kFindingCount; ++index) {
    const auto finding = static_cast<Finding>(index);
    const RungState state = RowOf(finding).state;
    if (state != RungState::Failed && state != RungState::Doubtful) continue;
    for (const AnswerLanguage language : {AnswerLanguage::English, AnswerLanguage::Japanese}) {
      const report::Run run = test::SilentTargetRun();
      Answer answer = AnswerOf(run, language);
      answer.rungs[static_cast<size_t>(Rung::Target)] = {finding, state, L""};
      const Way way = WayOf({.run = run, .answer = answer, .language = language});
      const std::wstring& word = way.nodes.back().word;
      EXPECT_TRUE(!word.empty() && Columns(word) <= 16) << index;
    }
  }
}

TEST(SavedReportTest, The_picture_shows_the_same_states_as_the_text) {
  const report::Run run = test::DeadGatewayRun();
  const std::string html = SavedReportHtml(ReportBuilder(run).source);
  EXPECT_EQ(Count(html, "<line class=\"fail\""), 1U);
  EXPECT_EQ(Count(html, "<line class=\"unknown\""), 5U);
  EXPECT_EQ(Count(html, "<line class=\"good\""), 0U);
  EXPECT_EQ(Count(html, "class=\"word\""), 1U);
  EXPECT_EQ(Count(html, ">silent</text>"), 1U);
  EXPECT_EQ(Count(html, "<svg role=\"img\""), 1U);
  EXPECT_EQ(Count(html, "<title>PC === x GW - ? - CNC   x: silent; CNC"), 1U);
}

TEST(SavedReportTest, The_file_names_its_language_and_encoding) {
  const report::Run run = test::AllGoodRun();
  const std::string english = SavedReportHtml(ReportBuilder(run).source);
  const std::string japanese = SavedReportHtml(ReportBuilder(run, AnswerLanguage::Japanese).source);
  EXPECT_EQ(Count(english, "<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">"), 1U);
  EXPECT_EQ(Count(japanese, "<html lang=\"ja\">\n<head>\n<meta charset=\"utf-8\">"), 1U);
}

TEST(SavedReportTest, Hostile_texts_stay_texts) {
  report::Run run = test::AllGoodRun();
  const std::wstring hostile = std::wstring(L"</pre></td><script src=http://x>&\"'\0\x1B\x7F\x85", 39) +
                               L"\xD800\u202E\u2028\r\n\r\rz";
  test::AddLines(run, {hostile});
  run.boxes.push_back({1, 2, hostile, BoxAnswer::Yes});
  run.target = run.facts.name.typed = run.facts.cnc.type = run.settings.pingCount = hostile;
  run.facts.pc.way.cards[0].name = run.facts.pc.way.cards[0].description = hostile;
  run.facts.pc.way.card->name = hostile;
  ReportBuilder builder(run);
  builder.source.libraries = {hostile};
  builder.source.windows = builder.source.edition = builder.source.timeZone = hostile;
  const std::string html = SavedReportHtml(builder.source);
  EXPECT_EQ(ReportReader::HtmlProblem(html), "");
  EXPECT_EQ(html.find("<script"), std::string::npos);
  EXPECT_EQ(ReportReader::TextProblem(SavedReportText(builder.source)), "");
}

TEST(SavedReportTest, Huge_texts_are_shortened_and_the_end_of_the_list_is_kept) {
  report::Run run = test::AllGoodRun();
  run.lines.assign(5200, {1, std::wstring(2100, L'x')});
  run.lines.front().text = L"first " + std::wstring(1'000'000, L'x');
  run.lines.back().text = L"the last line";
  const std::string text = SavedReportText(ReportBuilder(run).source);
  EXPECT_LT(text.size(), 10'100'000U);
  EXPECT_NE(text.find("first xxx"), std::string::npos);
  EXPECT_NE(text.find("\n    1.000  the last line\r\n"), std::string::npos);
  EXPECT_EQ(Count(text, " lines left out]"), 1U);
}

TEST(SavedReportTest, A_directory_of_a_hundred_thousand_entries_is_complete) {
  report::Run run = test::AllGoodRun();
  run.lines.assign(Run::kMaxLines, {1, L"O1234.NC 1,234,567 2026/11/22 14:32"});
  EXPECT_EQ(Count(SavedReportText(ReportBuilder(run).source), "\n    1.000  O1234.NC "), Run::kMaxLines);
}

}  // namespace
}  // namespace tarvik::report
