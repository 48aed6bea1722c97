#include "report/copied_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "report/report_text.h"
#include "tests/unit/report/report_builder.h"

namespace tarvik::report {
namespace {

using test::ReportBuilder;
using test::RunBuilder;

/// In UTF-8; every line must end with CR LF, which becomes LF.
std::string CopiedOf(const ReportSource& source) {
  std::wstring report = CopiedReport(source);
  const auto count = [&report](wchar_t letter) { return std::count(report.begin(), report.end(), letter); };
  EXPECT_EQ(count(L'\r'), count(L'\n'));
  EXPECT_LE(count(L'\n'), static_cast<std::ptrdiff_t>(kMaxCopiedLines));
  std::erase(report, L'\r');
  std::string bytes = "\n";
  AppendUtf8(bytes, report, false, "\n");
  return bytes;
}

std::string CopiedOf(const report::Run& run, AnswerLanguage language = AnswerLanguage::English) {
  return CopiedOf(ReportBuilder(run, language).source);
}

std::string FirstLineOf(const report::Run& run, AnswerLanguage language = AnswerLanguage::English) {
  const std::string report = CopiedOf(run, language);
  return report.substr(1, report.find('\n', 1) - 1);
}

TEST(CopiedReportTest, A_good_run) {
  EXPECT_EQ(CopiedOf(test::AllGoodRun()), R"(
Tarvik 1.1 | 192.168.1.100 | OK | 4 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
- Gateway: Not needed, the target is on the PC's own subnet.
OK Target: 192.168.1.100 answered 4 of 4 echoes, slowest 1 ms.
OK NEXAL2: CNC 31iB answered.
OK K7: Live 2 of 2 times.
OK FTP: Logged in, 3 entries listed.
Do next: Nothing. Only what was tested is proven.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
TCP 8193 192.168.1.10 -> 192.168.1.100
UDP ? 192.168.1.10 (K7 server) <-> 192.168.1.100
TCP 21 192.168.1.10 -> 192.168.1.100
TCP from port 20 of 192.168.1.100 to any port of 192.168.1.10, program Tarvik.exe (FTP listing)
)");
}

TEST(CopiedReportTest, A_silent_target) {
  EXPECT_EQ(CopiedOf(test::SilentTargetRun()), R"(
Tarvik 1.1 | 192.168.1.100 | FAIL Target [115] | 0 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
- Gateway: Not needed, the target is on the PC's own subnet.
FAIL Target: 192.168.1.100 answered none of 4 echoes. Check address, cable, power.
Do next: 1. Compare 192.168.1.100 with the address on the CNC's screen.
2. Look at the light at the PC's network socket. Off: plug in or change the cable.
3. Check that the hub or switch has power. Try another of its sockets.
4. Look at the light at the CNC's network socket. Off: plug in or change the cable.
5. Check that the CNC is on and has finished starting.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
)");
}

TEST(CopiedReportTest, A_dead_gateway) {
  EXPECT_EQ(CopiedOf(test::DeadGatewayRun()), R"(
Tarvik 1.1 | 192.168.5.100 | FAIL Gateway [110] | 0 of 4 | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.5.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
FAIL Gateway: 192.168.1.1 answered none of 4 echoes. Check its address, cable, power.
- Target: Not reached in this run.
- NEXAL2: Not reached in this run.
- FTP: Not reached in this run.
Do next: 1. Compare the gateway (192.168.1.1) and the PC (192.168.1.10) with the network plan.
2. Look at the light at the PC's network socket. Off: plug in or change the cable.
3. Check that the hub or switch has power. Try another of its sockets.
4. Check that the gateway has power and its lights are on.
5. Run the test again.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.1
ICMP echo 192.168.1.10 -> 192.168.5.100
TCP 8193 192.168.1.10 -> 192.168.5.100
TCP 21 192.168.1.10 -> 192.168.5.100
TCP from port 20 of 192.168.5.100 to any port of 192.168.1.10, program Tarvik.exe (FTP listing)
)");
}

TEST(CopiedReportTest, In_Japanese) {
  EXPECT_EQ(CopiedOf(test::DeadGatewayRun(), AnswerLanguage::Japanese), R"(
Tarvik 1.1 | 192.168.5.100 | 異常 ゲートウェイ [110] | 応答0/4 | PC 192.168.1.10/24 Ethernet 2 | 14:32
○ 名前：192.168.5.100はアドレスのため検索不要。
○ PC：アドレス192.168.1.10、マスク255.255.255.0。
× ゲートウェイ：192.168.1.1はPing 4回に無応答。アドレス、ケーブル、電源を確認。
－ 相手：手前の項目で終了したため未実施。
－ NEXAL2：手前の項目で終了したため未実施。
－ FTP：手前の項目で終了したため未実施。
次の手順：1. ゲートウェイ（192.168.1.1）とPC（192.168.1.10）をネットワーク構成図と比べる
2. PCのLANポートのランプを見る。消灯ならケーブルを挿し直すか交換する
3. ハブの電源を確認し、別のポートに挿し替える
4. ゲートウェイの電源とランプを確認する
5. もう一度テストする
IT部門に許可を依頼：
ICMPエコー 192.168.1.10 -> 192.168.1.1
ICMPエコー 192.168.1.10 -> 192.168.5.100
TCP 8193 192.168.1.10 -> 192.168.5.100
TCP 21 192.168.1.10 -> 192.168.5.100
TCP 192.168.5.100のポート20 -> 192.168.1.10の任意のポート、プログラム Tarvik.exe（FTPの一覧）
)");
}

TEST(CopiedReportTest, A_server_without_a_listing) {
  EXPECT_EQ(CopiedOf(test::NoListingRun()), R"(
Tarvik 1.1 | 192.168.1.100 | DOUBT FTP | reply 425 | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
- Gateway: Not needed, the target is on the PC's own subnet.
OK Target: 192.168.1.100 answered 1 of 1 echoes, slowest 1 ms.
! FTP: Logged in, but the listing did not arrive (reply 425). Allow Tarvik in the firewall.
Do next: 1. In the PC's firewall, allow connections to Tarvik from TCP port 20.
2. Ask for TCP port 20 to be allowed in firewalls on the way.
3. Run the test again.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
TCP 21 192.168.1.10 -> 192.168.1.100
TCP from port 20 of 192.168.1.100 to any port of 192.168.1.10, program Tarvik.exe (FTP listing)
)");
}

TEST(CopiedReportTest, A_cable_that_is_out) {
  EXPECT_EQ(CopiedOf(test::CableOutRun()), R"(
Tarvik 1.1 | 192.168.1.100 | FAIL PC | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
FAIL PC: Cable of "Ethernet 2" is out. Plug it into the PC.
- Gateway: Not needed, the target is on the PC's own subnet.
FAIL Target: 192.168.1.100 answered none of 4 echoes. Check address, cable, power.
Do next: 1. Plug the cable into the PC (Ethernet 2) until it clicks.
2. Look at the light at the PC's network socket. Off: plug in or change the cable.
3. Check that the hub or switch has power. Try another of its sockets.
4. Run the test again.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
)");
}

TEST(CopiedReportTest, A_stopped_run) {
  EXPECT_EQ(CopiedOf(test::StoppedRun()), R"(
Tarvik 1.1 | 192.168.1.100 | STOPPED | 0 of 1 | from 192.168.1.10/24 Ethernet 2 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
- Gateway: Not needed, the target is on the PC's own subnet.
- Target: Stopped. Nothing is proven.
Do next: Run the test again and let it end.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
)");
}

TEST(CopiedReportTest, Before_the_first_run) {
  EXPECT_EQ(CopiedOf(report::Run()), R"(
Tarvik 1.1 | ? | NOT TESTED | 14:32
No test has run yet.
Do next: Type the CNC's address and press Enter.
)");
}

TEST(CopiedReportTest, During_a_run) {
  RunBuilder run = test::OnSubnet();
  run.TargetPinged({RunBuilder::Lost()});
  run.facts().target.progress = Progress::Running;
  run.facts().target.echoes.asked = 4;
  run.run().active = true;
  run.run().end = RunEnd::None;
  EXPECT_EQ(CopiedOf(run.run()), R"(
Tarvik 1.1 | 192.168.1.100 | RUNNING Target | 0 of 1 | from 192.168.1.10/24 | 14:32
OK Name: 192.168.1.100 is an address, so nothing was looked up.
OK PC: Address 192.168.1.10, mask 255.255.255.0.
- Gateway: Not needed, the target is on the PC's own subnet.
- Target: Echo 2 of 4. Esc stops.
Do next: Wait. Esc stops the test when the current step ends.
IT must allow:
ICMP echo 192.168.1.10 -> 192.168.1.100
)");
}

TEST(CopiedReportTest, A_page_of_which_nothing_but_the_target_is_known) {
  RunBuilder run;
  run.run().target = L"cnc7";
  run.Only(Rung::CncLibrary).Cnc(CncCall::Connect, -16, 10'200);
  run.facts().cnc.timeOutSeconds = 10;
  run.facts().cnc.port = 8200;
  EXPECT_EQ(CopiedOf(run.run()), R"x(
Tarvik 1.1 | cnc7 | FAIL NEXAL2 | TCP 8200, error -16 | 14:32
FAIL NEXAL2: TCP port 8200 did not answer within the time-out of 10 s, error -16. Check firewalls, TCP port 8200.
Do next: 1. In the PC's firewall, allow TCP port 8200 to the CNC.
2. Compare "TCP port" (8200) on page NEXAL2 with the setting in the CNC.
3. Set a longer "Timeout (s)" on page NEXAL2, for example 30.
4. Ask for TCP port 8200 to be allowed in firewalls on the way.
5. Look up the error number in the manual of the CNC library.
IT must allow:
TCP 8200 this PC -> cnc7
)x");
}

TEST(CopiedReportTest, A_name_appears_with_its_address) {
  RunBuilder run;
  run.run().target = L"cnc7";
  run.Name(L"cnc7", L"192.168.1.100").Pc(true).TargetPinged({test::Answered()});
  EXPECT_EQ(FirstLineOf(run.run()),
            "Tarvik 1.1 | cnc7 (192.168.1.100) | OK | 1 of 1 | from 192.168.1.10/24 | 14:32");
  run.Name(L"cnc7", L"");
  EXPECT_EQ(FirstLineOf(run.run()), "Tarvik 1.1 | cnc7 | FAIL Name | from 192.168.1.10/24 | 14:32");
}

TEST(CopiedReportTest, A_K7_server_elsewhere_has_its_own_traffic) {
  RunBuilder run = test::OnSubnet();
  run.Only(Rung::K7).K7Failed(K7Call::ConnectServer, 0x1009F101, L"10.0.0.5");
  ReportBuilder builder(run.run());
  builder.source.k7UdpPort = L"9000";
  const std::string report = CopiedOf(builder.source);
  EXPECT_NE(report.find("FAIL K7 | error 1009F101 | "), std::string::npos) << report;
  EXPECT_NE(report.find("\nUDP 9000 this PC <-> 10.0.0.5 (K7 server), UDP ? 10.0.0.5 <-> 192.168.1.100\n"),
            std::string::npos)
      << report;
}

TEST(CopiedReportTest, A_K7_server_with_any_address_of_the_PC_has_no_traffic_to_itself) {
  RunBuilder run = test::OnSubnet();
  run.Pc(true, L"10.0.0.7", L"255.0.0.0");
  run.K7Failed(K7Call::ConnectServer, 0x1009F101, L"10.0.0.7");
  ReportBuilder builder(run.run());
  builder.source.k7UdpPort = L"9000";
  const std::string report = CopiedOf(builder.source);
  EXPECT_NE(report.find("\nUDP ? 192.168.1.10 (K7 server) <-> 192.168.1.100\n"), std::string::npos) << report;
}

TEST(CopiedReportTest, Evidence_comes_only_from_a_rung_of_the_run) {
  RunBuilder stopped;
  stopped.NearAnswers().FtpRefused(L"").Only(Rung::Ftp);
  stopped.facts().ftp = {};
  stopped.facts().ftp.progress = Progress::Stopped;
  stopped.run().end = RunEnd::Stopped;
  EXPECT_EQ(FirstLineOf(stopped.run()), "Tarvik 1.1 | 192.168.1.100 | STOPPED | 14:32");

  RunBuilder broken;
  broken.NearAnswers().Only(Rung::CncLibrary);
  broken.run().end = RunEnd::Error;
  EXPECT_EQ(FirstLineOf(broken.run()), "Tarvik 1.1 | 192.168.1.100 | FAIL | 14:32");

  RunBuilder blocked;
  blocked.Address(L"192.168.1.100").Pc(true).TargetPinged({RunBuilder::Lost()}).CncAnswers();
  blocked.Only(Rung::CncLibrary);
  EXPECT_EQ(FirstLineOf(blocked.run()), "Tarvik 1.1 | 192.168.1.100 | OK | TCP 8193 | 14:32");
}

TEST(CopiedReportTest, FTP_that_was_never_connected_has_no_port_as_evidence) {
  RunBuilder run;
  run.Only(Rung::Ftp).FtpRefused(L"", 0);
  EXPECT_EQ(FirstLineOf(run.run()), "Tarvik 1.1 | 192.168.1.100 | FAIL FTP | 14:32");
  run.facts().ftp.connectMs = 21'000;
  EXPECT_EQ(FirstLineOf(run.run()), "Tarvik 1.1 | 192.168.1.100 | FAIL FTP | TCP 21 | 14:32");
}

TEST(CopiedReportTest, Of_two_cards_on_the_subnet_of_the_target_the_one_that_Windows_uses_is_named) {
  RunBuilder run;
  run.Address(L"192.168.1.100").Pc(true).Pc(true, L"192.168.1.11").TargetPinged({RunBuilder::Lost()});
  WayToTarget& way = run.facts().pc.way;
  way.cards = {test::EthernetCard(), test::EthernetCard(L"192.168.1.11")};
  way.cards[1].name = L"Ethernet 3";
  way.severalCardsFit = true;
  EXPECT_EQ(CopiedOf(run.run()).find("192.168.1.10/"), std::string::npos);
  EXPECT_NE(CopiedOf(run.run()).find("ICMP echo this PC -> 192.168.1.100"), std::string::npos);
  way.card = way.cards[1];
  const std::string report = CopiedOf(run.run());
  EXPECT_NE(report.find("| from 192.168.1.11/24 Ethernet 3 |"), std::string::npos) << report;
  EXPECT_NE(report.find("ICMP echo 192.168.1.11 -> 192.168.1.100"), std::string::npos) << report;
}

TEST(CopiedReportTest, What_IT_must_allow_has_no_address_that_nobody_can_use) {
  RunBuilder stopgap;
  stopgap.Address(L"192.168.1.100").Pc(false, L"169.254.3.4", L"255.255.0.0", L"");
  EXPECT_NE(CopiedOf(stopgap.run()).find("\nICMP echo this PC -> 192.168.1.100\n"), std::string::npos);

  RunBuilder itself;
  itself.Address(L"192.168.1.10").Pc(true).TargetPinged({RunBuilder::From(L"192.168.1.10")});
  itself.run().target = L"192.168.1.10";
  EXPECT_EQ(CopiedOf(itself.run()).find("IT must allow"), std::string::npos);

  RunBuilder zeros;
  zeros.Address(L"192.168.001.010").Pc(true).TargetPinged({RunBuilder::Lost()});
  zeros.run().target = L"192.168.001.010";
  const std::string report = CopiedOf(zeros.run());
  EXPECT_NE(report.find("\nICMP echo 192.168.1.10 -> ?\n"), std::string::npos) << report;
}

TEST(CopiedReportTest, The_number_is_that_of_a_failure_however_many_lines_follow_it) {
  report::Run run = test::SilentTargetRun();
  test::AddLines(run, std::vector<std::wstring>(5000, L"O1234.NC 1,234,567 2026/11/22 14:32"));
  EXPECT_NE(FirstLineOf(run).find("FAIL Target [115] |"), std::string::npos) << FirstLineOf(run);
}

TEST(CopiedReportTest, A_long_name_is_cut_but_not_the_address_after_it) {
  RunBuilder run;
  run.run().target = std::wstring(100, L'x');
  run.Name(run.run().target, L"192.168.101.102").Pc(false).TargetPinged({RunBuilder::Lost()});
  EXPECT_NE(FirstLineOf(run.run()).find("xxx... (192.168.101.102) | "), std::string::npos);
}

TEST(CopiedReportTest, The_error_that_ended_a_run_is_named_without_secrets) {
  RunBuilder run = test::OnSubnet();
  run.run().end = RunEnd::Error;
  run.run().boxes.push_back({1, 2, L"Type mismatch\r\nhunter2", BoxAnswer::Ok});
  ReportBuilder builder(run.run());
  builder.source.secrets = {L"HUNTER2"};
  const std::string report = CopiedOf(builder.source);
  EXPECT_NE(report.find(" | FAIL | "), std::string::npos) << report;
  EXPECT_NE(report.find("\nType mismatch  ***\n"), std::string::npos) << report;
}

TEST(CopiedReportTest, Of_several_addresses_none_is_guessed) {
  RunBuilder run;
  run.run().target = L"172.16.0.9";
  run.Address(L"172.16.0.9").Pc(false).Pc(false, L"10.0.0.7", L"255.0.0.0", L"");
  EXPECT_EQ(FirstLineOf(run.run()), "Tarvik 1.1 | 172.16.0.9 | NOT TESTED Target | 14:32");
  WayToTarget& way = run.facts().pc.way;
  way.card = test::EthernetCard(L"10.0.0.7");
  way.card->mask = L"255.0.0.0";
  way.cards = {*way.card};
  EXPECT_EQ(FirstLineOf(run.run()),
            "Tarvik 1.1 | 172.16.0.9 | NOT TESTED Target | from 10.0.0.7/8 Ethernet 2 | 14:32");
}

TEST(CopiedReportTest, Without_explanations_the_first_step_is_that_of_the_sentence) {
  const report::Run run = test::SilentTargetRun();
  ReportBuilder builder(run);
  builder.source.explanations = nullptr;
  const std::string report = CopiedOf(builder.source);
  EXPECT_NE(report.find("FAIL Target | 0 of 4"), std::string::npos) << report;
  EXPECT_NE(report.find("\nDo next: check address, cable, power\n"), std::string::npos) << report;
}

TEST(CopiedReportTest, It_never_has_more_lines_or_longer_ones_than_fit) {
  RunBuilder run;
  const std::wstring longName(100'000, L'x');
  run.run().target = longName;
  run.Plan({Rung::CncLibrary, Rung::K7, Rung::Ftp}).Name(longName, L"192.168.5.100").Pc(false);
  run.GatewayPinged(RunBuilder::Lost());
  run.run().settings.k7Server = longName;
  run.run().boxes.push_back({1, 2, longName, BoxAnswer::Ok});
  for (const AnswerLanguage language : {AnswerLanguage::English, AnswerLanguage::Japanese}) {
    const std::string report = CopiedOf(run.run(), language);
    EXPECT_EQ(std::count(report.begin(), report.end(), '\n'), 1 + 20) << report;
    EXPECT_LT(report.size(), 20 * 1000U);
  }
}

TEST(CopiedReportTest, Steps_that_do_not_fit_are_left_out_but_not_what_IT_must_allow) {
  RunBuilder run;
  run.Plan({Rung::CncLibrary, Rung::K7, Rung::Ftp}).Address(L"192.168.5.100").Pc(false);
  run.GatewayPinged(RunBuilder::From(L"192.168.1.1"));
  run.run().end = RunEnd::Error;
  run.run().boxes.push_back({1, 2, L"Type mismatch", BoxAnswer::Ok});
  Explanations explanations;
  explanations.Add(
      "finding: Broken\nplace: pc\ntitle: T\n= t\ndo: A\n= a\ndo: B\n= b\ndo: C\n= c\ndo: D\n= d\n"
      "do: E\n= e\ndo: F\n= f\nmeans: M\n= m\n");
  ReportBuilder builder(run.run());
  builder.source.explanations = &explanations;
  const std::string report = CopiedOf(builder.source);
  EXPECT_NE(report.find("\nDo next: 1. A\n2. B\n3. C\n4. D\nIT must allow:\n"), std::string::npos) << report;
  EXPECT_TRUE(report.ends_with("(FTP listing)\n"));
}

}  // namespace
}  // namespace tarvik::report
