#pragma once

#include <string>

#include "report/report_source.h"
#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/unit/report/run_builder.h"
#include "tests/unit/resources/program_explanations.h"

namespace tarvik::report::test {

/// What reports are made from, for a run that RunBuilder has built.
class ReportBuilder {
 public:
  explicit ReportBuilder(const Run& run, AnswerLanguage language = AnswerLanguage::English)
      : answer_(AnswerOf(run, language)),
        mode_(language == AnswerLanguage::Japanese ? kBuiltInJapanese : kBuiltInEnglish),
        source{run, answer_, language} {
    source.program = L"Tarvik 1.1";
    source.edition = L"General edition";
    source.windows = L"Windows 10.0.19045";
    source.timeZone = L"UTC+09:00";
    source.libraries = {L"NxLib32.dll 5.1.2.0", L"k7api.dll not found"};
    source.made = {2026, 11, 22, 14, 32};
    source.explanations = &tarvik::test::ProgramExplanations();
    source.texts = &texts_;
  }

 private:
  Answer answer_;
  LanguageMode mode_;
  tarvik::test::FakeFiles files_;
  tarvik::test::FakeSystem system_;
  tarvik::test::FakeCodePage codePage_;
  Resource resource_{files_, system_, codePage_};
  Texts texts_{mode_, resource_};

 public:
  ReportSource source;
};

inline PcCard EthernetCard(const std::wstring& address = L"192.168.1.10", bool up = true) {
  PcCard card;
  card.name = L"Ethernet 2";
  card.description = L"Contoso Gigabit Adapter";
  card.address = address;
  card.mask = address.empty() ? L"" : L"255.255.255.0";
  if (!address.empty()) card.gateways = {L"192.168.1.1"};
  card.kind = CardKind::Cable;
  card.index = 7;
  card.up = up;
  return card;
}

/// The PC of RunBuilder with its one card.
inline RunBuilder& WithCard(RunBuilder& run, bool up = true) {
  WayToTarget& way = run.facts().pc.way;
  way.cards = {EthernetCard(L"192.168.1.10", up)};
  if (up) way.card = way.cards.front();
  RunSettings& settings = run.run().settings;
  settings.pingCount = L"4";
  settings.libraryPort = L"8193";
  settings.libraryTimeOut = L"10";
  run.run().began = L"2026/11/22 14:31:50";
  run.run().ended = L"2026/11/22 14:31:58";
  run.run().seconds = 8.125;
  return run;
}

inline void AddLines(Run& run, const std::vector<std::wstring>& lines) {
  for (const std::wstring& line : lines)
    run.lines.push_back({0.5 * static_cast<double>(run.lines.size()), line});
}

inline Echo Answered() { return RunBuilder::From(L"192.168.1.100"); }

/// Name, PC and target are good, and so are all services.
inline Run AllGoodRun() {
  RunBuilder run;
  const Echo echo = Answered();
  run.Address(L"192.168.1.100").Pc(true).TargetPinged({echo, echo, echo, echo}).CncAnswers();
  run.K7Live(2, 2).FtpListed(3, L"226 Transfer complete.");
  WithCard(run);
  AddLines(run.run(), {L"PING test...", L"0001 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64"});
  return run.run();
}

inline Run SilentTargetRun() {
  RunBuilder run;
  const Echo lost = RunBuilder::Lost();
  run.Address(L"192.168.1.100").Pc(true).TargetPinged({lost, lost, lost, lost});
  WithCard(run);
  AddLines(run.run(), {L"PING test...", L"0001 Reply From 192.168.1.100: Request Timed Out",
                       RowOf(Message::CannotPingTarget).english, RowOf(Message::CheckTarget).english});
  return run.run();
}

/// The target is on another subnet, and the gateway does not answer.
inline Run DeadGatewayRun() {
  RunBuilder run;
  const Echo lost = RunBuilder::Lost();
  run.run().target = L"192.168.5.100";
  run.Plan({Rung::CncLibrary, Rung::Ftp}).Address(L"192.168.5.100").Pc(false).GatewayPinged(lost);
  EchoSeries& echoes = run.facts().gateway.tried.front();
  for (int i = 0; i < 3; ++i) echoes.Add(lost, false);
  echoes.asked = 4;
  run.run().settings.generalEdition = false;
  WithCard(run);
  AddLines(run.run(), {L"GateWay (192.168.1.1) PING test ....", RowOf(Message::CannotPingGateway).english,
                       RowOf(Message::CheckGateway).english});
  return run.run();
}

/// The server accepts the login, but the listing never arrives.
inline Run NoListingRun() {
  RunBuilder run;
  run.NearAnswers().FtpListed(0, L"425 Cannot open data connection.");
  WithCard(run);
  AddLines(run.run(), {L"331 Password required for anna.", L"230 User ANNA logged in; annabel too.",
                       L"425 Cannot open data connection."});
  run.run().settings.ftpUserSet = run.run().settings.ftpPasswordSet = true;
  return run.run();
}

inline Run CableOutRun() {
  RunBuilder run;
  const Echo lost = RunBuilder::Lost();
  run.Address(L"192.168.1.100").Pc(true).TargetPinged({lost, lost, lost, lost});
  WithCard(run, false);
  return run.run();
}

inline Run StoppedRun() {
  RunBuilder run;
  run.Address(L"192.168.1.100").Pc(true).TargetPinged({RunBuilder::Lost()});
  run.facts().target.progress = Progress::Stopped;
  run.run().end = RunEnd::Stopped;
  WithCard(run);
  return run.run();
}

}  // namespace tarvik::report::test
