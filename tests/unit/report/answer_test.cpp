#include "report/answer.h"

#include <gtest/gtest.h>

#include "tests/unit/report/run_builder.h"

namespace tarvik::report::test {
namespace {

using B = RunBuilder;

std::wstring Sentence(RunBuilder& builder, AnswerLanguage language = AnswerLanguage::English) {
  return AnswerOf(builder.run(), language).sentence;
}

RunBuilder SilentOnSubnet() { return OnSubnet().TargetPinged({B::Lost()}).Plan({Rung::CncLibrary}); }

PcCard Card(CardKind kind, bool up) {
  PcCard card;
  card.name = L"Ethernet 2";
  card.kind = kind;
  card.up = up;
  return card;
}

TEST(AnswerTest, Before_the_first_run_nothing_is_said_and_nothing_tested) {
  const Answer answer = AnswerOf({}, AnswerLanguage::English);
  EXPECT_EQ(answer.sentence, L"");
  for (const RungFinding& rung : answer.rungs) EXPECT_EQ(rung.state, RungState::NotTested);
  EXPECT_EQ(answer.Of(Rung::Target).text, L"Target: Not tested yet.");
}

TEST(AnswerTest, A_running_rung_says_how_far_it_is_and_how_to_stop) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.100")});
  run.run().end = RunEnd::None;
  run.run().active = true;
  run.facts().target.progress = Progress::Running;
  run.facts().target.echoes.asked = 4;
  EXPECT_EQ(Sentence(run), L"Target, echo 2 of 4. Esc stops.");
  EXPECT_EQ(Sentence(run, AnswerLanguage::Japanese), L"相手へPing中、2/4回目。Escで中止。");
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).Of(Rung::Target).state, RungState::Running);
}

TEST(AnswerTest, A_blocking_library_says_how_long_it_waits) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.100")}).Cnc(CncCall::Connect, 0, 0);
  run.run().end = RunEnd::None;
  run.run().active = true;
  run.facts().cnc.progress = Progress::Running;
  run.facts().cnc.timeOutSeconds = 10;
  EXPECT_EQ(Sentence(run), L"NEXAL2, waits up to 10 s.");
}

TEST(AnswerTest, A_stop_before_the_first_answer_proves_nothing) {
  RunBuilder run = OnSubnet();
  run.run().end = RunEnd::Stopped;
  run.facts().target.progress = Progress::Stopped;
  EXPECT_EQ(Sentence(run), L"Stopped. Nothing is proven.");
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-----");
}

TEST(AnswerTest, A_stop_after_a_good_rung_keeps_what_it_proved) {
  RunBuilder run = B().NearAnswers().Plan({Rung::CncLibrary});
  run.run().end = RunEnd::Stopped;
  EXPECT_EQ(Sentence(run), L"Stopped. Tested up to Target, no more is proven.");
}

TEST(AnswerTest, A_stop_request_after_the_last_rung_changes_nothing) {
  RunBuilder run = B().NearAnswers().CncAnswers();
  run.run().end = RunEnd::Stopped;
  EXPECT_EQ(Sentence(run), L"All 4 tests good.");
}

TEST(AnswerTest, A_ping_count_of_0_proves_nothing) {
  RunBuilder run = OnSubnet().TargetPinged({});
  EXPECT_EQ(Sentence(run), L"Ping count 0, nothing is proven: set it to 4.");
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-----");
}

TEST(AnswerTest, A_ping_that_was_answered_says_how_well) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.100", 2), B::From(L"192.168.1.100", 31)});
  EXPECT_EQ(Sentence(run), L"Target good, 2 of 2 echoes, slowest 31 ms.");
}

TEST(AnswerTest, A_doubtful_rung_has_the_facts_and_the_advice_in_its_whole_text) {
  RunBuilder run = OnSubnet().TargetPinged(
      {B::From(L"192.168.1.100", 2), B::Lost(), B::From(L"192.168.1.100", 31), B::Lost()});
  const Answer answer = AnswerOf(run.run(), AnswerLanguage::English);
  EXPECT_EQ(answer.Of(Rung::Target).text,
            L"Target: 2 of 4 echoes answered, slowest 31 ms. Check cable and plugs.");
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::Japanese).Of(Rung::Target).text,
            L"相手：応答2/4、最長31 ms。ケーブルとコネクターを確認。");
}

TEST(AnswerTest, Good_rungs_are_counted_without_those_that_were_not_needed) {
  RunBuilder run = B().NearAnswers().CncAnswers().K7Live(2, 2).FtpListed(3, L"226 done");
  EXPECT_EQ(Sentence(run), L"All 6 tests good.");
}

TEST(AnswerTest, A_single_page_says_what_it_found) {
  RunBuilder cnc = B().CncAnswers().Only(Rung::CncLibrary);
  EXPECT_EQ(Sentence(cnc), L"NEXAL2 good, CNC 31iB answered.");
  RunBuilder k7 = B().K7Live(2, 2).Only(Rung::K7);
  EXPECT_EQ(Sentence(k7), L"K7 good, live 2 of 2 times.");
}

TEST(AnswerTest, A_single_page_keeps_the_marks_of_earlier_runs) {
  RunBuilder run = B().NearAnswers().CncAnswers().Only(Rung::CncLibrary);
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-oo--");
}

TEST(AnswerTest, A_missing_library_is_neither_good_nor_failed) {
  RunBuilder run = B().NearAnswers().Cnc(CncCall::None, 0, 0);
  run.facts().cnc.libraryMissing = true;
  EXPECT_EQ(Sentence(run), L"NEXAL2 not tested, library missing: install it.");
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).Of(Rung::CncLibrary).state,
            RungState::LibraryMissing);
}

TEST(AnswerTest, A_test_that_an_error_ended_refers_to_its_message) {
  RunBuilder run = B().NearAnswers().Cnc(CncCall::Connect, 0, 0);
  run.run().end = RunEnd::Error;
  run.facts().cnc.progress = Progress::Running;
  EXPECT_EQ(Sentence(run), L"The test broke off: read the message, then run it again.");
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-ox--");
}

TEST(AnswerTest, An_error_before_the_first_rung_refers_to_its_message) {
  RunBuilder run;
  run.run().end = RunEnd::Error;
  EXPECT_EQ(Sentence(run), L"The test broke off: read the message, then run it again.");
}

TEST(AnswerTest, An_address_that_answers_for_another_one_is_named) {
  RunBuilder run = OnSubnet().TargetPinged({B::From(L"192.168.1.16")});
  EXPECT_EQ(Sentence(run), L"192.168.1.16 answered instead: compare the addresses.");
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-!---");
}

TEST(AnswerTest, An_unreachable_report_of_the_PC_itself_means_that_nobody_has_the_address) {
  RunBuilder run = OnSubnet().TargetPinged({B::Refused(11003, L"192.168.1.10")});
  EXPECT_EQ(Sentence(run), L"Nobody has this address: check it, then cable, power.");
  RunBuilder asError = OnSubnet().TargetPinged({B::Lost(11003)});
  EXPECT_EQ(Sentence(asError), L"Nobody has this address: check it, then cable, power.");
}

TEST(AnswerTest, An_echo_that_Windows_could_not_send_is_the_PCs_fault) {
  RunBuilder run = OnSubnet().TargetPinged({B::Lost(1231)});
  EXPECT_EQ(Sentence(run), L"Windows sent no echo (error 1231): check the PC's card.");
}

TEST(AnswerTest, A_card_without_a_link_explains_the_silence) {
  RunBuilder run = SilentOnSubnet();
  run.facts().pc.way.card = Card(CardKind::Cable, false);
  EXPECT_EQ(Sentence(run), L"Cable of \"Ethernet 2\" is out: plug it into the PC.");
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "ox-x---");
  run.facts().pc.way.card = Card(CardKind::Wireless, false);
  EXPECT_EQ(Sentence(run), L"\"Ethernet 2\" is not connected: connect it first.");
  run.facts().pc.way.card = Card(CardKind::Cable, true);
  EXPECT_EQ(Sentence(run), L"Target silent: check address, cable, power.");
}

TEST(AnswerTest, A_card_on_the_targets_subnet_without_a_link_explains_why_Windows_takes_another_way) {
  RunBuilder run = B().Address(L"192.168.2.100").Pc(false).GatewayPinged(B::From(L"192.168.1.1"));
  run.TargetPinged({B::Lost()});
  PcCard office = Card(CardKind::Cable, true);
  office.name = L"Office";
  PcCard machine = Card(CardKind::Cable, false);
  machine.address = L"192.168.2.10";
  machine.mask = L"255.255.255.0";
  run.facts().pc.way = {office, false, {office, machine}};
  EXPECT_EQ(Sentence(run), L"Cable of \"Ethernet 2\" is out: plug it into the PC.");
}

TEST(AnswerTest, An_unused_card_without_a_link_is_not_blamed) {
  RunBuilder run = B().Address(L"192.168.2.100").Pc(false).Gateway(GatewayResult::NoneConfigured);
  PcCard unused = Card(CardKind::Cable, false);
  run.facts().pc.way.cards = {unused, Card(CardKind::Cable, true)};
  EXPECT_EQ(Sentence(run), L"PC has no gateway: set one, or correct the address.");
  run.facts().pc.way.cards = {unused};
  EXPECT_EQ(Sentence(run), L"Cable of \"Ethernet 2\" is out: plug it into the PC.");
}

TEST(AnswerTest, A_card_without_a_link_does_not_matter_when_the_target_answers) {
  RunBuilder run = B().NearAnswers();
  run.facts().pc.way.cards = {Card(CardKind::Cable, false)};
  EXPECT_EQ(MarksOf(AnswerOf(run.run(), AnswerLanguage::English)), "oo-o---");
}

TEST(AnswerTest, The_neighbour_table_distinguishes_a_missing_device_from_a_silent_one) {
  RunBuilder run = SilentOnSubnet();
  run.facts().target.neighbour = Neighbour::Absent;
  EXPECT_EQ(Sentence(run), L"Nobody has this address: check it, then cable, power.");
  run.facts().target.neighbour = Neighbour::Present;
  EXPECT_EQ(Sentence(run), L"A device was seen, but no ping: test page NEXAL2.");
  RunBuilder gateway = B().Address(L"192.168.2.100").Pc(false).GatewayPinged(B::Lost());
  gateway.facts().gateway.neighbour = Neighbour::Absent;
  EXPECT_EQ(Sentence(gateway), L"Nobody has the gateway's address: check it, then power.");
  gateway.facts().gateway.neighbour = Neighbour::Present;
  EXPECT_EQ(Sentence(gateway), L"Gateway seen, but no ping answered: have ping allowed.");
}

TEST(AnswerTest, The_ports_answer_splits_a_failed_connection) {
  RunBuilder run = B().NearAnswers().Cnc(CncCall::Connect, -102, 1);
  CncFacts& cnc = run.facts().cnc;
  cnc.portAnswer = PortAnswer::Refused;
  EXPECT_EQ(Sentence(run), L"TCP port 8193 is closed: check port, other programs.");
  cnc.portAnswer = PortAnswer::Open;
  EXPECT_EQ(Sentence(run), L"Port 8193 open, NEXAL2 fails: compare port, other programs.");
  cnc.callMs = 2000;
  EXPECT_EQ(Sentence(run), L"Port open, no answer in 2 s: set a longer time-out.");
  cnc.portAnswer = PortAnswer::Silent;
  EXPECT_EQ(Sentence(run), L"TCP port 8193 silent: open it in the firewalls.");
}

TEST(AnswerTest, The_ports_answer_splits_a_silent_FTP_server) {
  RunBuilder run = B().NearAnswers().FtpRefused(L"");
  FtpFacts& ftp = run.facts().ftp;
  ftp.portAnswer = PortAnswer::Refused;
  EXPECT_EQ(Sentence(run), L"FTP port 21 is closed: switch on FTP in the CNC.");
  ftp.portAnswer = PortAnswer::Silent;
  EXPECT_EQ(Sentence(run), L"FTP port 21 silent: open it in the firewalls.");
  ftp.portAnswer = PortAnswer::Open;
  EXPECT_EQ(Sentence(run), L"FTP port open, no greeting: restart FTP in the CNC.");
}

TEST(AnswerTest, A_failure_that_explains_itself_wins_over_a_doubt) {
  RunBuilder run =
      OnSubnet().TargetPinged({B::Refused(11003, L"192.168.1.1")}).Cnc(CncCall::ConnectWithCode, 7, 1);
  EXPECT_EQ(Sentence(run), L"Access code needed: tick and type it on page NEXAL2.");
}

TEST(AnswerTest, A_zero_in_front_that_changes_nothing_is_no_doubt) {
  RunBuilder run = B().Address(L"192.168.1.001").Pc(true).TargetPinged({B::From(L"192.168.1.001")});
  EXPECT_EQ(AnswerOf(run.run(), AnswerLanguage::English).Of(Rung::Name).state, RungState::Good);
}

TEST(AnswerTest, A_number_that_Windows_cannot_read_is_named_even_without_a_gateway) {
  RunBuilder run = B().Address(L"192.168.001.099").Pc(false).Gateway(GatewayResult::NoneConfigured);
  EXPECT_EQ(Sentence(run), L"Zeros in the address: type 99, not 099.");
}

TEST(AnswerTest, K7_counts_how_often_the_CNC_was_live) {
  RunBuilder some = B().NearAnswers().K7Live(2, 4);
  EXPECT_EQ(Sentence(some), L"K7 live only 2 of 4 times: check the cables.");
  RunBuilder none = B().NearAnswers().K7Live(0, 0);
  EXPECT_EQ(Sentence(none), L"K7 count 0, nothing is proven: set it to 1.");
  RunBuilder elsewhere = B().NearAnswers().K7Failed(K7Call::ConnectServer, 0x1009F101, L"192.168.1.5");
  EXPECT_EQ(Sentence(elsewhere), L"K7 server 192.168.1.5 silent: start it there.");
}

}  // namespace
}  // namespace tarvik::report::test
