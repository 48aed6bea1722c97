// What the copied and the saved report have in common.

#include "report/report_parts.h"

#include <algorithm>
#include <bit>

#include "platform/text.h"
#include "report/explanation_facts.h"
#include "report/finding_words.h"
#include "report/own_address.h"
#include "report/report_text.h"

namespace tarvik::report {
namespace {

std::wstring PrefixOf(const std::wstring& mask) {
  const std::optional<uint32_t> bits = AddressNumber(mask);
  if (!bits || *bits == 0) return {};
  const int length = std::countl_one(*bits);
  const bool hasGaps = length < 32 && *bits << length != 0;
  return L"/" + (hasGaps ? mask : Decimal(length));
}

/// The most characters of a name where it is followed by what must not be cut.
constexpr size_t kMaxNameInTraffic = 60;

/// Null when several addresses of the PC could lead to the target.
const OwnAddress* KnownOwnAddress(const Facts& facts) {
  const OwnAddress* const own = DecisiveOwnAddress(facts);
  if (own == nullptr || !IsRealAddress(own->address)) return nullptr;
  const std::wstring& target = facts.name.address;
  if (own->address != target && OwnAddressesOnSubnet(facts.pc, target) > 1) {
    for (const OwnAddress& each : facts.pc.addresses)
      if (facts.pc.way.card && each.address == facts.pc.way.card->address && IsOnSubnet(each, target))
        return &each;
    return nullptr;
  }
  if (IsOnSubnet(*own, facts.name.address) || own == TooNarrowOwnAddress(facts.pc, facts.name.address))
    return own;
  if (!facts.gateway.tried.empty())
    for (const std::wstring& gateway : own->gateways)
      if (gateway == facts.gateway.tried.back().address) return own;
  for (const OwnAddress& other : facts.pc.addresses)
    if (&other != own && IsRealAddress(other.address)) return nullptr;
  return own;
}

std::wstring CardWith(const WayToTarget& way, const std::wstring& address) {
  if (way.card && way.card->address == address) return way.card->name;
  for (const PcCard& card : way.cards)
    if (card.address == address) return card.name;
  return {};
}

std::wstring Cut(const std::wstring& name) {
  std::wstring cut;
  AppendOneLine(cut, name, kMaxNameInTraffic);
  return cut;
}

/// What the rung's packets are sent to; a name as typed if the run has not resolved it. "?" for an address
/// that Windows reads in another way than it looks.
std::wstring DestinationOf(const ReportSource& source, Rung rung) {
  const Run& run = source.run;
  std::wstring address = run.OtherTarget(rung);
  if (address.empty()) {
    if (source.answer.Of(Rung::Name).finding == Finding::AddressMistyped) return L"?";
    address = ResolvedNow(run).empty() ? run.target : ResolvedNow(run);
  }
  const bool misread = AddressNumber(address) && !PaddedNumber(address).empty();
  return address.empty() || misread ? L"?" : Cut(address);
}

/// "TCP 8193", with the port that was used or, before that, the one that is set.
std::wstring CncPort(const Run& run) {
  int32_t port = run.facts.cnc.port;
  if (port <= 0) port = ParseInt32(run.settings.libraryPort).value_or(0);
  return L"TCP " + (port > 0 ? Decimal(port) : L"?");
}

/// The known port is that of the K7 server. Nothing known says which one it uses towards the controller.
std::wstring K7Traffic(const ReportSource& source, const wchar_t* pc) {
  const Run& run = source.run;
  const std::wstring& host = run.facts.k7.server.empty() ? run.settings.k7Server : run.facts.k7.server;
  const bool isOwn =
      std::ranges::any_of(run.facts.pc.addresses, [&](const OwnAddress& own) { return own.address == host; });
  const std::wstring server = IsThisPc(host) || isOwn ? pc : Cut(host);
  const wchar_t* const port = source.k7UdpPort.empty() ? L"?" : source.k7UdpPort.c_str();
  const wchar_t* const named = In(source.language, L" (K7 server)", L"（K7サーバー）");
  std::wstring line;
  if (server != pc)
    line =
        Joined({L"UDP ", port, L" ", pc, L" <-> ", server.c_str(), named, In(source.language, L", ", L"、")});
  line += Joined({L"UDP ? ", server.c_str(), server != pc ? L"" : named, L" <-> "});
  return line + DestinationOf(source, Rung::K7);
}

void AppendNumber(std::wstring& out, wchar_t before, int32_t number, size_t digits) {
  out += before;
  out += ZeroPadded(number, digits);
}

}  // namespace

OwnPlace OwnPlaceOf(const Run& run) {
  if (!run.Planned(Rung::Pc)) return {};
  const Facts& facts = run.facts;
  const WayToTarget& way = facts.pc.way;
  OwnPlace place;
  const auto set = [&place](const std::wstring& address, const std::wstring& mask) {
    if (!IsRealAddress(address)) return;
    place.address = address;
    place.prefix = PrefixOf(mask);
  };
  if (const OwnAddress* const own = KnownOwnAddress(facts)) {
    set(own->address, own->mask);
    place.card = CardWith(way, own->address);
  } else if (const PcCard* const card = CardOf(way, facts.name.address);
             card != nullptr && !way.severalCardsFit &&
             OwnAddressesOnSubnet(facts.pc, facts.name.address) <= 1) {
    set(card->address, card->mask);
    place.card = card->name;
  }
  return place;
}

std::wstring ResolvedNow(const Run& run) { return run.Planned(Rung::Name) ? run.Resolved() : std::wstring(); }

std::wstring TargetText(const Run& run, size_t maxName) {
  const std::wstring address = ResolvedNow(run);
  std::wstring text;
  AppendOneLine(text, run.target.empty() ? L"?" : run.target, maxName);
  if (!address.empty() && address != run.target) text += Joined({L" (", address.c_str(), L")"});
  return text;
}

RungFinding FoundNow(const ReportSource& source, Rung rung) {
  const Run& run = source.run;
  const AnswerLanguage language = source.language;
  RungFinding found = source.answer.Of(rung);
  const bool tested = found.state != RungState::NotTested && found.state != RungState::LibraryMissing;
  if (tested && !run.Planned(rung)) found = Described(run, rung, Finding::NotInThisRun, language);
  const std::wstring name = NameOf(rung, language);
  if (found.text.starts_with(name)) found.text.replace(0, name.size(), WideNameOf(rung, language));
  if (const std::wstring& other = run.OtherTarget(rung); !other.empty() && run.Planned(rung))
    found.text += Joined(
        {In(language, L" Tested was ", L"テスト対象："), Cut(other).c_str(), In(language, L".", L"。")});
  return found;
}

std::optional<Rung> DecidingRung(const Answer& answer) {
  const RungState state = RowOf(answer.finding).state;
  const bool about =
      (answer.Of(answer.rung).finding == answer.finding || answer.finding == Finding::CncGoodWithoutPing) &&
      state != RungState::NotInThisRun && answer.finding != Finding::NotTested;
  return about ? std::optional(answer.rung) : std::nullopt;
}

std::wstring VerdictText(const ReportSource& source, AnswerLanguage language) {
  const auto named = [&](const wchar_t* english, const wchar_t* japanese) {
    const std::optional<Rung> rung = DecidingRung(source.answer);
    const wchar_t* const word = In(language, english, japanese);
    return rung ? Joined({word, L" ", WideNameOf(*rung, language)}) : Joined({word});
  };
  if (source.run.active) return named(L"RUNNING", L"テスト中");
  switch (RowOf(source.answer.finding).state) {
    case RungState::Good:
      return In(language, L"OK", L"良好");
    case RungState::Doubtful:
      return named(L"DOUBT", L"要確認");
    case RungState::Failed:
      return named(L"FAIL", L"異常");
    case RungState::Stopped:
      return In(language, L"STOPPED", L"中止");
    default:
      return named(L"NOT TESTED", L"未テスト");
  }
}

const wchar_t* WideNameOf(Rung rung, AnswerLanguage language) {
  const bool narrow = rung == Rung::Gateway && language == AnswerLanguage::Japanese;
  return narrow ? L"ゲートウェイ" : NameOf(rung, language);
}

const wchar_t* PlainMark(RungState state, AnswerLanguage language) {
  const wchar_t* const mark = MarkOf(state, language);
  return *mark == L'–' ? L"-" : mark;
}

std::vector<std::wstring> NextSteps(const ReportSource& source) {
  const Answer& answer = source.answer;
  const FindingRow& row = RowOf(answer.finding);
  const wchar_t* const todo = row.In(source.language).todo;
  if (row.state == RungState::Good && *todo == L'\0')
    return {In(source.language, L"Nothing. Only what was tested is proven.",
               L"なし。テストした範囲のみ確認済み。")};
  const FoundExplanation found =
      source.explanations == nullptr ? FoundExplanation() : source.explanations->Of(answer.finding);
  std::vector<std::wstring> steps;
  if (found.explanation != nullptr)
    for (const BothLanguages& step : found.explanation->steps)
      steps.push_back(Filled(step, source.run, answer.rung, source.language).text);
  if (steps.empty() && *todo != L'\0')
    steps.push_back(WithFacts(todo, source.run, answer.rung, source.language));
  if (steps.empty()) steps.push_back(In(source.language, L"Run the test again.", L"もう一度テストする"));
  return steps;
}

std::vector<std::wstring> NeededTraffic(const ReportSource& source) {
  const Run& run = source.run;
  const bool japanese = source.language == AnswerLanguage::Japanese;
  const OwnPlace own = OwnPlaceOf(run);
  const Finding pcFinding = FoundNow(source, Rung::Pc).finding;
  std::vector<std::wstring> lines;
  if (pcFinding == Finding::PcIsTarget) return lines;
  // Without a mask, the address is one that Windows has chosen itself and soon changes.
  const bool unknown = own.address.empty() || pcFinding == Finding::PcNoMask;
  const wchar_t* const pc = unknown ? In(source.language, L"this PC", L"このPC") : own.address.c_str();
  const auto add = [&lines, pc](const wchar_t* what, const std::wstring& to) {
    lines.push_back(Joined({what, L" ", pc, L" -> ", to.c_str()}));
  };
  const wchar_t* const echo = japanese ? L"ICMPエコー" : L"ICMP echo";
  if (run.Planned(Rung::Gateway) && !run.facts.gateway.tried.empty())
    add(echo, run.facts.gateway.tried.back().address);
  if (run.Planned(Rung::Target)) add(echo, DestinationOf(source, Rung::Target));
  if (run.Planned(Rung::CncLibrary)) add(CncPort(run).c_str(), DestinationOf(source, Rung::CncLibrary));
  if (run.Planned(Rung::K7)) lines.push_back(K7Traffic(source, pc));
  if (!run.Planned(Rung::Ftp)) return lines;
  const std::wstring ftp = DestinationOf(source, Rung::Ftp);
  const wchar_t* const target = ftp.c_str();
  add(L"TCP 21", ftp);
  if (japanese)
    lines.push_back(Joined(
        {L"TCP ", target, L"のポート20 -> ", pc, L"の任意のポート、プログラム Tarvik.exe（FTPの一覧）"}));
  else
    lines.push_back(Joined(
        {L"TCP from port 20 of ", target, L" to any port of ", pc, L", program Tarvik.exe (FTP listing)"}));
  return lines;
}

const LocalTime& TimeOfRun(const ReportSource& source) {
  return source.run.endedAt.month == 0 ? source.made : source.run.endedAt;
}

std::wstring DateText(const LocalTime& time) {
  std::wstring text = ZeroPadded(time.year, 4);
  AppendNumber(text, L'-', time.month, 2);
  AppendNumber(text, L'-', time.day, 2);
  return text;
}

std::wstring TimeText(const LocalTime& time) {
  std::wstring text = ZeroPadded(time.hour, 2);
  AppendNumber(text, L':', time.minute, 2);
  return text;
}

}  // namespace tarvik::report
