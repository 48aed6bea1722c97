// Which facts of the Ping check prove what, and which do not.

#include <gtest/gtest.h>

#include "tests/fakes/fake_context.h"
#include "tests/unit/report/run_builder.h"

namespace tarvik::report::test {
namespace {

using B = RunBuilder;

Finding TargetOf(RunBuilder run) { return FindingOf(run.run(), Rung::Target); }
Finding GatewayOf(RunBuilder run) { return FindingOf(run.run(), Rung::Gateway); }
Finding PcOf(RunBuilder run) { return FindingOf(run.run(), Rung::Pc); }

RunBuilder Beyond() { return B().Address(L"192.168.2.100").Pc(false); }

PcCard CableOut() {
  PcCard card;
  card.name = L"Ethernet 2";
  card.kind = CardKind::Cable;
  return card;
}

struct AnswerEvidenceTest : testing::Test, tarvik::test::FakeContext {
  void Begin(const std::vector<Rung>& rungs, const std::wstring& target = L"cnc") {
    recorder.Begin(target, rungs, {}, L"");
  }
};

TEST_F(AnswerEvidenceTest, Only_a_test_after_the_ping_proves_that_the_target_answers) {
  report::Run& run = recorder.run;
  Begin({Rung::CncLibrary, Rung::Ftp});
  run.facts.cnc.type = L"31iB";
  run.facts.ftp.loggedIn = true;
  recorder.End(RunEnd::Finished, L"");
  Begin({Rung::Name, Rung::Pc, Rung::Gateway, Rung::Target});
  run.facts.pc.sameSubnet = true;
  run.facts.name = {Progress::Ended, L"192.168.1.100", true, L"192.168.1.100"};
  run.facts.target = B::OfTarget({B::Lost()});
  EXPECT_EQ(FindingOf(run, Rung::Target), Finding::TargetSilent);
  run.facts.ftp.beforePing = false;
  EXPECT_EQ(FindingOf(run, Rung::Target), Finding::TargetPingBlocked);
  recorder.End(RunEnd::Finished, L"");
}

TEST_F(AnswerEvidenceTest, A_ping_of_another_target_inside_a_run_discards_what_was_known) {
  Begin({Rung::K7});
  recorder.run.facts.cnc.type = L"31iB";
  Begin({Rung::Name, Rung::Target}, L"cnc-2");
  EXPECT_EQ(recorder.run.target, L"cnc-2");
  EXPECT_EQ(recorder.run.facts.cnc.type, L"");
  recorder.End(RunEnd::Finished, L"");
  recorder.End(RunEnd::Finished, L"");
}

TEST_F(AnswerEvidenceTest, A_missing_library_is_known_before_the_first_run_and_after_each) {
  recorder.SetLibraryMissing(Rung::Ftp);
  EXPECT_EQ(FindingOf(recorder.run, Rung::Ftp), Finding::FtpLibraryMissing);
  Begin({Rung::Name});
  EXPECT_EQ(FindingOf(recorder.run, Rung::Ftp), Finding::FtpLibraryMissing);
  EXPECT_EQ(FindingOf(recorder.run, Rung::K7), Finding::NotInThisRun);
  recorder.End(RunEnd::Finished, L"");
  recorder.Forget();
  EXPECT_EQ(FindingOf(recorder.run, Rung::Ftp), Finding::FtpLibraryMissing);
}

TEST_F(AnswerEvidenceTest, A_box_beyond_the_limit_is_not_kept_and_answers_no_other) {
  Begin({Rung::K7});
  for (int i = 0; i < 1000; ++i) recorder.BoxAnswered(recorder.BoxShown(L"box"), BoxAnswer::Ok);
  recorder.BoxAnswered(recorder.BoxShown(L"one too many"), BoxAnswer::Yes);
  ASSERT_EQ(recorder.run.boxes.size(), 1000u);
  EXPECT_EQ(recorder.run.boxes.back().answer, BoxAnswer::Ok);
  recorder.End(RunEnd::Finished, L"");
}

TEST(AnswerTest, A_report_of_the_PC_itself_is_no_answer) {
  const Echo ownReport = B::Refused(11003, L"192.168.1.10");
  const Echo failure = B::Refused(11050, L"0.0.0.0");
  EXPECT_EQ(TargetOf(OnSubnet().TargetPinged({ownReport})), Finding::TargetAbsent);
  EXPECT_EQ(TargetOf(OnSubnet().TargetPinged({failure})), Finding::EchoNotSent);
  EXPECT_EQ(GatewayOf(Beyond().GatewayPinged(ownReport)), Finding::GatewayAbsent);
  EXPECT_EQ(GatewayOf(Beyond().GatewayPinged(failure)), Finding::EchoNotSent);
  for (const Echo& echo : {ownReport, failure}) {
    RunBuilder near = OnSubnet().TargetPinged({echo});
    near.facts().pc.way.card = CableOut();
    EXPECT_EQ(PcOf(near), Finding::PcCableOut);
    RunBuilder beyond = Beyond().GatewayPinged(echo);
    beyond.facts().pc.way.card = CableOut();
    EXPECT_EQ(PcOf(beyond), Finding::PcCableOut);
  }
}

TEST(AnswerTest, Beyond_the_gateway_no_report_of_the_PC_says_that_the_target_is_missing) {
  RunBuilder run = Beyond().GatewayPinged(B::From(L"192.168.1.1"));
  EXPECT_EQ(TargetOf(run.TargetPinged({B::Refused(11003, L"192.168.1.10")})), Finding::TargetSilentBeyond);
  run.TargetPinged({B::Lost(11003)});
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).sentence,
            L"Windows reports error 11003: check address, gateway.");
}

TEST(AnswerTest, Only_a_good_gateway_is_called_good) {
  RunBuilder run = Beyond().GatewayPinged(B::Refused(11013, L"192.168.1.1")).TargetPinged({B::Lost()});
  EXPECT_EQ(TargetOf(run), Finding::TargetSilent);
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).finding, Finding::GatewayRefused);
}

TEST(AnswerTest, Lost_echoes_explain_a_failed_connection) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.100"), B::Lost()});
  run.Cnc(CncCall::Connect, -102, 1);
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).finding, Finding::TargetLossy);
}

TEST(AnswerTest, A_series_that_never_began_is_not_a_silent_target) {
  RunBuilder run = OnSubnet().TargetPinged({});
  run.facts().target.echoes.asked = 4;
  EXPECT_EQ(TargetOf(run), Finding::Broken);
}

TEST(AnswerTest, An_address_that_Windows_made_up_is_none) {
  const auto pc = [](const std::wstring& target, bool sameSubnet) {
    return B().Address(target).Pc(sameSubnet, L"169.254.7.9", L"255.255.0.0", L"0.0.0.0");
  };
  EXPECT_EQ(PcOf(pc(L"192.168.1.100", false).Gateway(GatewayResult::NoneConfigured)), Finding::PcNoMask);
  EXPECT_EQ(PcOf(pc(L"169.254.1.1", true)), Finding::PcGood);
  EXPECT_EQ(PcOf(pc(L"192.168.1.100", false).Pc(false, L"10.0.0.1")), Finding::PcGood);
}

TEST(AnswerTest, Two_addresses_of_one_card_are_no_doubt) {
  RunBuilder run = OnSubnet().Pc(true, L"192.168.1.11").TargetPinged({B::Lost()});
  EXPECT_EQ(PcOf(run), Finding::PcTwoCards);
  PcCard card = CableOut();
  card.up = true;
  run.facts().pc.way.cards = {card};
  EXPECT_EQ(PcOf(run), Finding::PcGood);
}

TEST(AnswerTest, Of_several_cards_without_a_link_none_is_blamed) {
  RunBuilder run = OnSubnet().TargetPinged({B::Lost()});
  run.facts().pc.way.cards = {CableOut(), CableOut()};
  EXPECT_EQ(PcOf(run), Finding::PcGood);
}

TEST(AnswerTest, The_facts_are_those_of_the_address_that_the_finding_is_about) {
  RunBuilder narrow = B().Address(L"192.168.1.100").Pc(false, L"10.0.0.1");
  narrow.Pc(false, L"192.168.1.10", L"255.255.255.240", L"0.0.0.0").Gateway(GatewayResult::NoneConfigured);
  EXPECT_EQ(AnswerOf(narrow.run(), AnswerLanguage::English).sentence,
            L"PC's mask 255.255.255.240 looks too narrow: compare it.");
  RunBuilder outside = B().Address(L"192.168.2.100").Pc(false, L"10.0.0.1", L"255.0.0.0", L"0.0.0.0");
  outside.Pc(false, L"192.168.1.10", L"255.255.255.0", L"192.168.9.1").Gateway(GatewayResult::NoneUsable);
  EXPECT_EQ(
      AnswerOf(outside.run(), AnswerLanguage::English).Of(Rung::Gateway).text,
      L"Gateway: The gateway 192.168.9.1 is outside the PC's subnet (192.168.1.10, mask 255.255.255.0). "
      L"Correct it.");
}

TEST(AnswerTest, A_doubtful_rung_before_a_stop_has_been_tested) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.100"), B::Lost()}).Plan({Rung::CncLibrary});
  run.run().end = RunEnd::Stopped;
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).sentence,
            L"Stopped. Tested up to Target, no more is proven.");
}

TEST(AnswerTest, A_hidden_page_is_not_recommended) {
  RunBuilder run = OnSubnet().TargetPinged({B::Lost()});
  run.facts().target.neighbour = Neighbour::Present;
  run.run().settings.nexalPage = false;
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).sentence,
            L"A device was seen, but no ping: have ping allowed.");
}

}  // namespace
}  // namespace tarvik::report::test
