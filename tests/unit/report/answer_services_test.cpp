// What the facts of the CNC library, K7 and FTP mean, beyond the faults of the laboratory.

#include <gtest/gtest.h>

#include "report/finding_names.h"
#include "tests/unit/report/run_builder.h"

namespace tarvik::report::test {
namespace {

using B = RunBuilder;

std::wstring SentenceOf(RunBuilder run, AnswerLanguage language = AnswerLanguage::English) {
  return AnswerOf(run.run(), language).sentence;
}

RunBuilder Connecting(PortAnswer port) {
  RunBuilder run = B().NearAnswers().Cnc(CncCall::Connect, -102, 1);
  run.facts().cnc.portAnswer = port;
  return run;
}

TEST(AnswerServicesTest, Without_a_ping_a_silent_port_leads_to_the_page_Ping) {
  RunBuilder cnc = B().Address(L"192.168.1.100").Cnc(CncCall::Connect, -103, 2001).Only(Rung::CncLibrary);
  cnc.facts().cnc.portAnswer = PortAnswer::Silent;
  EXPECT_EQ(SentenceOf(cnc), L"TCP port 8193 silent: test page Ping first.");
  RunBuilder ftp = B().Address(L"192.168.1.100").FtpRefused(L"").Only(Rung::Ftp);
  ftp.facts().ftp.portAnswer = PortAnswer::Silent;
  EXPECT_EQ(SentenceOf(ftp), L"FTP port 21 silent: test page Ping first.");
}

TEST(AnswerServicesTest, Another_port_than_usual_is_corrected_first) {
  RunBuilder run = Connecting(PortAnswer::Open);
  EXPECT_EQ(SentenceOf(run), L"Port 8193 open, NEXAL2 fails: compare port, other programs.");
  run.facts().cnc.port = 21;
  EXPECT_EQ(SentenceOf(run), L"Port 21 open, NEXAL2 fails: correct the TCP port.");
}

TEST(AnswerServicesTest, A_controller_that_asked_for_the_code_has_an_open_port) {
  RunBuilder run = Connecting(PortAnswer::Refused);
  run.facts().cnc.call = CncCall::ConnectWithCode;
  EXPECT_EQ(FindingOf(run.run(), Rung::CncLibrary), Finding::CncPortOpen);
}

TEST(AnswerServicesTest, Before_its_time_out_is_known_the_library_begins) {
  RunBuilder run = B().NearAnswers().Plan({Rung::CncLibrary});
  run.run().end = RunEnd::None;
  run.run().active = true;
  EXPECT_EQ(SentenceOf(run), L"NEXAL2 begins.");
}

TEST(AnswerServicesTest, A_hidden_page_is_not_recommended_for_K7) {
  RunBuilder run = B().NearAnswers().K7Failed(K7Call::ConnectServer, 0x1009F101);
  EXPECT_EQ(SentenceOf(run), L"K7 server does not answer: check its service on page K7 Svc.");
  run.run().settings.k7ServicePage = false;
  EXPECT_EQ(SentenceOf(run), L"K7 server does not answer: check its service.");
}

TEST(AnswerServicesTest, A_negative_K7_count_is_named) {
  RunBuilder run = B().NearAnswers().K7Live(0, 0);
  run.facts().k7.asked = -3;
  EXPECT_EQ(SentenceOf(run), L"K7 count -3, nothing is proven: set it to 1.");
}

TEST(AnswerServicesTest, A_listing_is_complete_only_when_the_server_says_so) {
  const auto finding = [](int32_t entries, const std::wstring& reply) {
    return FindingOf(B().NearAnswers().FtpListed(entries, reply).run(), Rung::Ftp);
  };
  EXPECT_EQ(finding(3, L"226 done"), Finding::FtpGood);
  EXPECT_EQ(finding(3, L"250 done\r\n221 bye"), Finding::FtpGood);
  EXPECT_EQ(finding(3, L"150 here it comes"), Finding::FtpCutShort);
  EXPECT_EQ(finding(0, L"226 done"), Finding::FtpEmpty);
  EXPECT_EQ(finding(0, L"150 here it comes"), Finding::FtpNoListing);
}

TEST(AnswerServicesTest, A_listing_that_never_began_although_it_took_long_is_blocked) {
  RunBuilder run = B().NearAnswers().FtpListed(0, L"200 PORT command successful.");
  EXPECT_EQ(FindingOf(run.run(), Rung::Ftp), Finding::FtpCutBefore);
  run.facts().ftp.listMs = 20'000;
  EXPECT_EQ(SentenceOf(run), L"FTP logged in, no listing: allow Tarvik in the firewall.");
}

TEST(AnswerServicesTest, A_server_without_any_reply_is_a_proxy) {
  RunBuilder run = B().NearAnswers().FtpListed(2, L"");
  run.facts().ftp.loginReply = run.facts().ftp.directoryReply = L"";
  EXPECT_EQ(SentenceOf(run), L"FTP server never replied: check the proxy.");
  RunBuilder refused = B().NearAnswers().FtpRefused(L"");
  refused.facts().ftp.connectError = 12016;
  EXPECT_EQ(SentenceOf(refused), L"No reply from the FTP server: check the proxy.");
}

TEST(AnswerServicesTest, One_entry_is_one) {
  EXPECT_EQ(SentenceOf(B().NearAnswers().FtpListed(1, L"226 done").Only(Rung::Ftp)),
            L"FTP good, 1 entry listed.");
}

TEST(AnswerServicesTest, A_whole_text_does_not_repeat_the_name_of_its_rung) {
  const struct {
    std::string_view begin;
    Rung rung;
  } kinds[] = {{"Gateway", Rung::Gateway}, {"RunningGateway", Rung::Gateway},
               {"Target", Rung::Target},   {"RunningTarget", Rung::Target},
               {"Cnc", Rung::CncLibrary},  {"RunningCnc", Rung::CncLibrary},
               {"K7", Rung::K7},           {"RunningK7", Rung::K7},
               {"Ftp", Rung::Ftp},         {"RunningFtp", Rung::Ftp}};
  for (int i = 0; i < kFindingCount; ++i)
    for (const auto& kind : kinds) {
      const auto finding = static_cast<Finding>(i);
      if (!NameOf(finding).starts_with(kind.begin)) continue;
      for (const AnswerLanguage language : {AnswerLanguage::English, AnswerLanguage::Japanese}) {
        const FindingWords& words = RowOf(finding).In(language);
        const std::wstring text = words.detail == nullptr ? words.what : words.detail;
        EXPECT_FALSE(text.starts_with(NameOf(kind.rung, language))) << NameOf(finding);
      }
    }
}

}  // namespace
}  // namespace tarvik::report::test
