// Derives the picture of the way from the answer, so that both always say the same.

#include "report/way.h"

#include <algorithm>

#include "platform/text.h"
#include "report/finding_words.h"
#include "report/own_address.h"
#include "report/report_parts.h"

namespace tarvik::report {
namespace {

/// What is wrong, for all findings from one to another one.
struct LinkWord {
  Finding first;
  Finding last;
  const wchar_t* english;
  const wchar_t* japanese;
};

constexpr LinkWord kLinkWords[] = {
    {Finding::Broken, Finding::Broken, L"broke off", L"中断"},
    {Finding::PcNoConfiguration, Finding::PcNoMask, L"no address", L"アドレスなし"},
    {Finding::PcCableOut, Finding::PcCableOut, L"cable out", L"ケーブル抜け"},
    {Finding::PcWirelessOff, Finding::PcWirelessOff, L"not connected", L"未接続"},
    {Finding::PcIsTarget, Finding::PcIsTarget, L"PC itself", L"PC自身"},
    {Finding::PcMaskNarrow, Finding::PcMaskNarrow, L"mask", L"マスク"},
    {Finding::PcTwoCards, Finding::PcTwoCards, L"two cards", L"LANカード複数"},
    {Finding::GatewayLossy, Finding::GatewayLossy, L"losses", L"一部無応答"},
    {Finding::GatewayRefused, Finding::GatewayRefused, L"errors", L"エラー"},
    {Finding::GatewayElsewhere, Finding::GatewayElsewhere, L"other device", L"別の機器"},
    {Finding::GatewayNone, Finding::GatewayNoneSeveral, L"none set", L"設定なし"},
    {Finding::GatewayOutside, Finding::GatewayOutside, L"other subnet", L"サブネット外"},
    {Finding::GatewaySilent, Finding::GatewaySilentFar, L"silent", L"無応答"},
    {Finding::GatewayAbsent, Finding::GatewayAbsent, L"no device", L"機器なし"},
    {Finding::GatewayPresent, Finding::GatewayPresent, L"no ping", L"Ping無応答"},
    {Finding::EchoNotSent, Finding::EchoNotSent, L"not sent", L"送信不可"},
    {Finding::TargetLossy, Finding::TargetLossy, L"losses", L"一部無応答"},
    {Finding::TargetElsewhere, Finding::TargetElsewhere, L"other device", L"別の機器"},
    {Finding::TargetSilent, Finding::TargetSilentWideMask, L"silent", L"無応答"},
    {Finding::TargetAbsent, Finding::TargetAbsent, L"no device", L"機器なし"},
    {Finding::TargetPresent, Finding::TargetPingBlocked, L"no ping", L"Ping無応答"},
    {Finding::TargetPingRejected, Finding::TargetPingRejected, L"ping rejected", L"Ping拒否"},
    {Finding::TargetNoRoute, Finding::TargetNoRoute, L"no route", L"経路なし"},
    {Finding::TargetUnreachable, Finding::TargetNotReached, L"unreachable", L"到達不可"},
    {Finding::TargetFirewall, Finding::TargetFirewall, L"firewall", L"ファイアウォール"},
    {Finding::TargetLoop, Finding::TargetLoop, L"loop", L"ループ"},
    {Finding::CncLibraryMissing, Finding::CncLibraryMissing, L"no library", L"ライブラリなし"},
    {Finding::CncCodeMissing, Finding::CncCodeWrong, L"access code", L"アクセスコード"},
    {Finding::CncTimedOut, Finding::CncTimedOut, L"silent", L"無応答"},
    {Finding::CncPortClosed, Finding::CncPortClosed, L"closed", L"閉じている"},
    {Finding::CncPortSilent, Finding::CncPortSilentUnpinged, L"silent", L"無応答"},
    {Finding::CncPortOpenTimeOut, Finding::CncPortOpenTimeOut, L"no answer", L"応答なし"},
    {Finding::CncThenTimedOut, Finding::CncThenTimedOut, L"then silent", L"途中で無応答"},
    {Finding::CncOptionMissing, Finding::CncOptionMissing, L"no option", L"オプションなし"},
    {Finding::K7LibraryMissing, Finding::K7LibraryMissing, L"no library", L"ライブラリなし"},
    {Finding::K7NotLive, Finding::K7NotLive, L"not live", L"未接続"},
    {Finding::K7SometimesLive, Finding::K7SometimesLive, L"at times", L"時々未接続"},
    {Finding::K7ServerSilent, Finding::K7ServerSilentElsewhere, L"server silent", L"サーバー無応答"},
    {Finding::K7ServerUnknown, Finding::K7ServerUnknown, L"unknown", L"サーバー名不明"},
    {Finding::K7UnitUnknown, Finding::K7UnitUnknown, L"unknown", L"未登録"},
    {Finding::FtpLibraryMissing, Finding::FtpLibraryMissing, L"no library", L"ライブラリなし"},
    {Finding::FtpEmpty, Finding::FtpEmpty, L"empty", L"一覧が空"},
    {Finding::FtpNoReply, Finding::FtpNoReply, L"no reply", L"応答文なし"},
    {Finding::FtpNoListing, Finding::FtpCutBefore, L"no listing", L"一覧なし"},
    {Finding::FtpCutShort, Finding::FtpCutShort, L"cut short", L"途中で切断"},
    {Finding::FtpProxy, Finding::FtpProxy, L"proxy", L"プロキシ"},
    {Finding::FtpSilent, Finding::FtpSilent, L"silent", L"無応答"},
    {Finding::FtpPortClosed, Finding::FtpPortClosed, L"closed", L"閉じている"},
    {Finding::FtpPortSilent, Finding::FtpPortSilentUnpinged, L"silent", L"無応答"},
    {Finding::FtpPortOpen, Finding::FtpPortOpen, L"no greeting", L"応答なし"},
    {Finding::FtpLoginRefused, Finding::FtpUserMissing, L"login refused", L"ログイン拒否"},
    {Finding::FtpFull, Finding::FtpFull, L"busy", L"混雑"},
    {Finding::FtpHungUp, Finding::FtpHungUp, L"hung up", L"切断"},
};

LinkState StateOfLink(RungState state) {
  switch (state) {
    case RungState::Good:
      return LinkState::Good;
    case RungState::Doubtful:
      return LinkState::Doubtful;
    case RungState::Failed:
      return LinkState::Failed;
    default:
      return LinkState::Unknown;
  }
}

void SetLink(WayNode& node, const RungFinding& found, AnswerLanguage language) {
  node.link = StateOfLink(found.state);
  node.word.clear();
  for (const LinkWord& word : kLinkWords)
    if (found.finding >= word.first && found.finding <= word.last)
      node.word = In(language, word.english, word.japanese);
  if (node.word.empty() && node.link == LinkState::Failed) node.word = In(language, L"fails", L"異常");
  if (node.word.empty() && node.link == LinkState::Doubtful) node.word = In(language, L"doubtful", L"要確認");
}

void AddFact(WayNode& node, const std::wstring& fact) {
  if (!fact.empty()) node.facts.push_back(Shortened(fact));
}

class WayDrawer {
 public:
  explicit WayDrawer(const ReportSource& source) : source_(source), run_(source.run) {}

  Way Draw() {
    AddPc();
    AddGateway();
    AddTarget();
    AddServices();
    return std::move(way_);
  }

 private:
  void Connect(WayNode& node, Rung rung) const { SetLink(node, FoundNow(source_, rung), source_.language); }

  void AddPc() {
    const OwnPlace own = OwnPlaceOf(run_);
    WayNode& node = way_.nodes.emplace_back();
    node.name = L"PC";
    node.known = !own.address.empty();
    AddFact(node, own.Network());
    AddFact(node, own.card);
  }

  void AddGateway() {
    const GatewayFacts& facts = run_.facts.gateway;
    if (!run_.Planned(Rung::Gateway) || facts.progress == Progress::NotStarted ||
        facts.result == GatewayResult::NotNeeded)
      return;
    WayNode& node = way_.nodes.emplace_back();
    node.name = L"GW";
    const std::wstring address = !facts.tried.empty() ? facts.tried.back().address
                                 : facts.result == GatewayResult::NoneUsable
                                     ? WithFacts(L"%G", run_, Rung::Gateway, source_.language)
                                     : std::wstring();
    node.known = !address.empty();
    AddFact(node, address);
    Connect(node, Rung::Gateway);
  }

  void AddTarget() {
    WayNode& node = way_.nodes.emplace_back();
    node.name = In(source_.language, L"CNC", L"相手");
    const std::wstring resolved = ResolvedNow(run_);
    node.known = !resolved.empty() || AddressNumber(run_.target);
    AddFact(node, run_.target);
    if (resolved != run_.target) AddFact(node, resolved);
    Connect(node, Rung::Target);
    // What is wrong with the PC shows on its own link.
    const RungFinding pc = FoundNow(source_, Rung::Pc);
    WayNode& first = way_.nodes[1];
    const bool doubt = pc.state == RungState::Doubtful && first.link != LinkState::Failed;
    if (pc.state == RungState::Failed || doubt) SetLink(first, pc, source_.language);
  }

  void AddServices() {
    const RunSettings& settings = run_.settings;
    AddService(Rung::CncLibrary, settings.nexalPage,
               run_.facts.cnc.port > 0 ? L"TCP " + Decimal(run_.facts.cnc.port) : std::wstring());
    AddService(Rung::K7, settings.generalEdition, run_.facts.k7.server);
    AddService(Rung::Ftp, true, L"TCP 21");
  }
  void AddService(Rung rung, bool offered, const std::wstring& fact) {
    if (!offered && !run_.Planned(rung)) return;
    WayNode& node = way_.services.emplace_back();
    node.name = NameOf(rung, source_.language);
    const bool isPlanned = run_.Planned(rung);
    if (isPlanned || rung == Rung::Ftp) AddFact(node, fact);
    // Another controller's service says nothing about this one's.
    const std::wstring& other = run_.OtherTarget(rung);
    if (isPlanned && !other.empty())
      AddFact(node, other);
    else
      Connect(node, rung);
    node.known = node.link != LinkState::Unknown;
  }

  const ReportSource& source_;
  const Run& run_;
  Way way_;
};

void AppendLink(std::wstring& line, std::wstring& words, const WayNode& node) {
  constexpr const wchar_t* kDrawn[] = {L" - ? - ", L" === ", L" === ! ", L" === x "};
  constexpr const wchar_t* kSigns[] = {L"?: ", L"", L"!: ", L"x: "};
  const auto state = static_cast<size_t>(node.link);
  line += kDrawn[state] + node.name;
  if (!node.word.empty()) words += L"   " + (kSigns[state] + node.word);
}

}  // namespace

Way WayOf(const ReportSource& source) { return WayDrawer(source).Draw(); }

std::wstring WayText(const Way& way) {
  std::wstring text;
  std::wstring words;
  for (const WayNode& node : way.nodes)
    if (&node == way.nodes.data())
      text += node.name;
    else
      AppendLink(text, words, node);
  text += words;
  for (const WayNode& node : way.services) {
    text += L"\n" + way.nodes.back().name;
    words.clear();
    AppendLink(text, words, node);
    text += words;
  }
  const auto describe = [&text](const WayNode& node) {
    text += L"\n" + node.name + L": ";
    for (const std::wstring& fact : node.facts) text += (&fact == node.facts.data() ? L"" : L", ") + fact;
    if (!node.known) text += node.facts.empty() ? L"?" : L" (?)";
  };
  for (const WayNode& node : way.nodes) describe(node);
  return text;
}

}  // namespace tarvik::report
