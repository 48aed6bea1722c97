// A report shows texts of servers, libraries and cards. None can become markup, and none can damage the file.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "report/copied_report.h"
#include "report/saved_report.h"
#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/fuzz/fuzzer.h"
#include "tests/unit/report/report_form.h"
#include "tests/unit/resources/program_explanations.h"

namespace tarvik::report {
namespace {

using tarvik::test::Require;

/// Any characters, as Windows has them and beyond.
std::wstring ReportInput(FuzzedDataProvider& input) {
  const std::string bytes = input.ConsumeRandomLengthString(200);
  std::wstring text;
  for (const char byte : bytes) {
    const auto letter = static_cast<unsigned char>(byte);
    constexpr wchar_t kSpecial[] = {0x202E, 0x2028, 0xFEFF, 0xD83D, 0xDE00, 0xFFFE, 0x85,   0x200B,
                                    0x3042, 0xAD,   0x061C, 0xFFF9, 0xDB40, 0xDC01, 0x200D, 0xFFFD};
    text += letter < 0xF0 ? static_cast<wchar_t>(letter) : kSpecial[letter % std::size(kSpecial)];
  }
  return text;
}

template <typename Enumeration>
Enumeration AnyOf(FuzzedDataProvider& input, Enumeration last) {
  return static_cast<Enumeration>(input.ConsumeIntegralInRange(0, static_cast<int>(last)));
}

std::wstring AnyAddress(FuzzedDataProvider& input) {
  constexpr const wchar_t* kAddresses[] = {L"", L"192.168.1.10", L"192.168.1.1", L"10.0.0.9", L"0.0.0.0"};
  const auto choice = input.ConsumeIntegralInRange<size_t>(0, std::size(kAddresses));
  return choice == std::size(kAddresses) ? ReportInput(input) : kAddresses[choice];
}

EchoSeries AnySeries(FuzzedDataProvider& input) {
  EchoSeries series;
  series.address = AnyAddress(input);
  series.asked = input.ConsumeIntegralInRange(0, 3);
  for (int i = input.ConsumeIntegralInRange(0, 3); i > 0; --i) {
    const Echo echo = {input.ConsumeBool(), input.ConsumeIntegralInRange(0U, 11050U),
                       input.ConsumeIntegralInRange(0U, 11050U), 1, AnyAddress(input)};
    series.Add(echo, input.ConsumeBool());
  }
  return series;
}

PcCard AnyCard(FuzzedDataProvider& input) {
  PcCard card;
  card.name = ReportInput(input);
  card.description = ReportInput(input);
  card.address = AnyAddress(input);
  card.mask = input.ConsumeBool() ? L"255.255.255.0" : ReportInput(input);
  card.gateways = {AnyAddress(input)};
  card.kind = AnyOf(input, CardKind::Other);
  card.up = input.ConsumeBool();
  return card;
}

void FillFacts(Facts& facts, FuzzedDataProvider& input) {
  facts.name = {AnyOf(input, Progress::Stopped), ReportInput(input), input.ConsumeBool(), AnyAddress(input)};
  PcFacts& pc = facts.pc;
  pc.progress = AnyOf(input, Progress::Stopped);
  pc.configurationRead = input.ConsumeBool();
  pc.hasMask = input.ConsumeBool();
  pc.sameSubnet = input.ConsumeBool();
  while (input.ConsumeBool() && pc.addresses.size() < 4)
    pc.addresses.push_back({AnyAddress(input), L"255.255.255.0", {AnyAddress(input)}});
  while (input.ConsumeBool() && pc.way.cards.size() < 4) pc.way.cards.push_back(AnyCard(input));
  if (input.ConsumeBool()) pc.way.card = AnyCard(input);
  facts.gateway.progress = AnyOf(input, Progress::Stopped);
  facts.gateway.result = AnyOf(input, GatewayResult::Answered);
  if (input.ConsumeBool()) facts.gateway.tried.push_back(AnySeries(input));
  facts.target = {AnyOf(input, Progress::Stopped), AnySeries(input), AnyOf(input, Neighbour::Absent)};
  facts.cnc.progress = AnyOf(input, Progress::Stopped);
  facts.cnc.call = AnyOf(input, CncCall::SystemInfo);
  facts.cnc.result = input.ConsumeIntegral<int16_t>();
  facts.cnc.port = input.ConsumeIntegral<int32_t>();
  facts.cnc.type = ReportInput(input);
  facts.k7.progress = AnyOf(input, Progress::Stopped);
  facts.k7.server = ReportInput(input);
  facts.k7.failed = AnyOf(input, K7Call::CheckReboot);
  facts.k7.errorCode = input.ConsumeIntegral<int32_t>();
  facts.ftp.progress = AnyOf(input, Progress::Stopped);
  facts.ftp.loggedIn = input.ConsumeBool();
  facts.ftp.loginReply = ReportInput(input);
  facts.ftp.endReply = ReportInput(input);
}

void FillRun(Run& run, FuzzedDataProvider& input) {
  run.target = input.ConsumeBool() ? ReportInput(input) : AnyAddress(input);
  run.began = ReportInput(input);
  run.ended = ReportInput(input);
  run.seconds = input.ConsumeFloatingPoint<double>();
  run.active = input.ConsumeBool();
  run.end = AnyOf(input, RunEnd::Error);
  run.settings.pingCount = ReportInput(input);
  run.settings.libraryPort = ReportInput(input);
  run.settings.k7Server = ReportInput(input);
  run.settings.generalEdition = input.ConsumeBool();
  for (bool& planned : run.planned) planned = input.ConsumeBool();
  if (input.ConsumeBool()) run.otherTarget[input.ConsumeIntegralInRange(0U, 6U)] = AnyAddress(input);
  if (input.ConsumeBool()) run.endedAt = {2026, input.ConsumeIntegral<int32_t>(), 2, 3, 4};
  while (input.ConsumeBool() && run.lines.size() < 20)
    run.lines.push_back({input.ConsumeFloatingPoint<double>(), ReportInput(input)});
  while (input.ConsumeBool() && run.boxes.size() < 5)
    run.boxes.push_back({input.ConsumeFloatingPoint<double>(), input.ConsumeFloatingPoint<double>(),
                         ReportInput(input), AnyOf(input, BoxAnswer::Error)});
  // A single line that is longer than anything that is shown.
  if (input.ConsumeBool() && !run.lines.empty())
    for (std::wstring& text = run.lines[0].text; !text.empty() && text.size() < 10'000;) text += text;
}

void RequireShort(const std::wstring& report) {
  Require(report.ends_with(L"\r\n") && test::ReportReader::WideProblem(report).empty());
  std::string bytes = "\xEF\xBB\xBF";
  for (const wchar_t letter : report) bytes += letter < 0x80 ? static_cast<char>(letter) : '?';
  Require(test::ReportReader::TextProblem(bytes).empty());
  Require(std::count(bytes.begin(), bytes.end(), '\n') <= static_cast<std::ptrdiff_t>(kMaxCopiedLines));
}

/// What the program has, too.
struct ProgramTexts {
  const Explanations& explanations = tarvik::test::ProgramExplanations();
  tarvik::test::FakeFiles files;
  tarvik::test::FakeSystem system;
  tarvik::test::FakeCodePage codePage;
  Resource resource{files, system, codePage};
  LanguageMode mode = kBuiltInEnglish;
  Texts texts{mode, resource};
};

void CheckReports(const uint8_t* data, size_t size) {
  FuzzedDataProvider input(data, size);
  Run run;
  FillFacts(run.facts, input);
  FillRun(run, input);
  const auto language = input.ConsumeBool() ? AnswerLanguage::Japanese : AnswerLanguage::English;
  const Answer answer = AnswerOf(run, language);
  ReportSource source{.run = run, .answer = answer, .language = language};
  static const ProgramTexts program;
  if (input.ConsumeBool()) source.explanations = &program.explanations;
  if (input.ConsumeBool()) source.texts = &program.texts;
  source.program = ReportInput(input);
  source.edition = ReportInput(input);
  source.windows = ReportInput(input);
  source.timeZone = ReportInput(input);
  source.k7UdpPort = ReportInput(input);
  source.libraries = {ReportInput(input), ReportInput(input)};
  source.secrets = {ReportInput(input), L"a"};
  source.made = {input.ConsumeIntegral<int32_t>(), 1, 2, input.ConsumeIntegral<int32_t>(), 4};

  Require(test::ReportReader::HtmlProblem(SavedReportHtml(source)).empty());
  Require(test::ReportReader::TextProblem(SavedReportText(source)).empty());
  RequireShort(CopiedReport(source));
  const std::wstring name = ReportFileName(source);
  Require(name.size() < 120 && name.find_first_of(L"<>:\"/\\|?*\r\n\t") == std::wstring::npos);
  Require(test::ReportReader::WideProblem(name).empty());
}

}  // namespace
}  // namespace tarvik::report

TARVIK_FUZZER(report_saved) { tarvik::report::CheckReports(data, size); }
