// Puts facts into the words of a finding.

#include "report/finding_words.h"

#include <algorithm>

#include "platform/text.h"
#include "report/answer.h"
#include "report/own_address.h"

namespace tarvik::report {
namespace {

/// A sentence has room for one name of that width.
constexpr size_t kMaxNameColumns = 20;

/// "3.2", "12"
std::wstring SecondsText(uint32_t milliseconds) {
  if (milliseconds >= 10'000) return Decimal(milliseconds / 1000);
  return Decimal(milliseconds / 1000) + L"." + Decimal(milliseconds / 100 % 10);
}

std::wstring OwnText(const Facts& facts, std::wstring OwnAddress::*text) {
  const OwnAddress* const own = DecisiveOwnAddress(facts);
  return own == nullptr ? std::wstring() : own->*text;
}

std::wstring GatewayOf(const OwnAddress& own) {
  const auto found = std::find_if(own.gateways.begin(), own.gateways.end(),
                                  [](const std::wstring& each) { return IsRealAddress(each); });
  return found == own.gateways.end() ? std::wstring() : *found;
}

std::wstring FirstGateway(const Facts& facts) {
  const OwnAddress* const decisive = DecisiveOwnAddress(facts);
  std::wstring gateway = decisive == nullptr ? std::wstring() : GatewayOf(*decisive);
  for (const OwnAddress& own : facts.pc.addresses)
    if (gateway.empty()) gateway = GatewayOf(own);
  return gateway;
}

std::wstring WithoutZeros(const std::wstring& number) {
  const size_t digit = number.find_first_not_of(L'0');
  return digit == std::wstring::npos ? L"0" : number.substr(digit);
}

std::wstring NameOfCard(const Facts& facts) {
  const PcCard* const card = CardOf(facts.pc.way, facts.name.address);
  return card == nullptr ? std::wstring() : card->name;
}

/// In this run, and good.
bool IsGood(const Run& run, Rung rung) {
  return run.Planned(rung) && RowOf(FindingOf(run, rung)).state == RungState::Good;
}

/// The name of the highest rung of this run that let it go on.
std::wstring LastPassedRung(const Run& run, AnswerLanguage language) {
  for (int index = kRungCount - 1; index >= 0; --index) {
    const auto rung = static_cast<Rung>(index);
    const bool doubtful = run.Planned(rung) && RowOf(FindingOf(run, rung)).state == RungState::Doubtful;
    if (doubtful || IsGood(run, rung)) return NameOf(rung, language);
  }
  return {};
}

int32_t GoodRungs(const Run& run) {
  int32_t count = 0;
  for (int rung = 0; rung < kRungCount; ++rung)
    if (IsGood(run, static_cast<Rung>(rung))) ++count;
  return count;
}

std::wstring EntriesText(int32_t entries, AnswerLanguage language) {
  if (language == AnswerLanguage::Japanese) return Decimal(entries) + L"件";
  return Decimal(entries) + (entries == 1 ? L" entry" : L" entries");
}

/// What to compare when a service answers on the port that is not the library's.
std::wstring PortAdvice(int32_t port, AnswerLanguage language) {
  constexpr int32_t kUsualPort = 8193;
  if (language == AnswerLanguage::Japanese)
    return port == kUsualPort ? L"番号、他のプログラムを確認" : L"TCPポート番号を訂正";
  return port == kUsualPort ? L"compare port, other programs" : L"correct the TCP port";
}

/// Where to look at the K7 service; empty when the page is hidden.
std::wstring PlaceOfK7Service(const RunSettings& settings, AnswerLanguage language) {
  if (!settings.k7ServicePage) return {};
  return language == AnswerLanguage::Japanese ? L"K7 Svcページで" : L" on page K7 Svc";
}

/// What to test next when a device has the address but does not answer pings.
std::wstring NextTest(const RunSettings& settings, AnswerLanguage language) {
  if (language == AnswerLanguage::Japanese)
    return settings.nexalPage ? L"NEXAL2ページでテスト" : L"Pingの許可を依頼";
  return settings.nexalPage ? L"test page NEXAL2" : L"have ping allowed";
}

std::wstring FactOf(wchar_t letter, const Run& run, Rung rung, AnswerLanguage language) {
  const Facts& facts = run.facts;
  const EchoSeries& echoes = EchoesOf(facts, rung);
  switch (letter) {
    case L'A':
      return echoes.address;
    case L'B':
      return Decimal(facts.cnc.result);
    case L'C':
      return Shortened(NameOfCard(facts));
    case L'D':
      return SecondsText(facts.cnc.callMs);
    case L'E':
      return Decimal(echoes.status != 0 ? echoes.status : echoes.error);
    case L'F':
      return Decimal(facts.ftp.entries);
    case L'G':
      return FirstGateway(facts);
    case L'H':
      return Shortened(facts.k7.server);
    case L'I':
      return OwnText(facts, &OwnAddress::address);
    case L'K':
      return Hexadecimal(static_cast<uint32_t>(facts.k7.errorCode));
    case L'L':
      return Decimal(echoes.slowestMs);
    case L'M':
      return OwnText(facts, &OwnAddress::mask);
    case L'N':
      return Decimal(echoes.answered);
    case L'O':
      return echoes.otherSender;
    case L'P':
      return Decimal(facts.cnc.port);
    case L'Q':
      return Decimal(facts.k7.asked);
    case L'R':
      return facts.name.address;
    case L'S':
      return Decimal(run.active ? echoes.asked : echoes.sent);
    case L'T':
      return Shortened(run.OtherTarget(rung).empty() ? facts.name.typed : run.OtherTarget(rung));
    case L'U':
      return Decimal(facts.k7.answers);
    case L'V':
      return Decimal(facts.k7.live);
    case L'W':
      return Decimal(facts.cnc.timeOutSeconds);
    case L'X':
      return Decimal(echoes.sent - echoes.answered);
    case L'Y':
      return Shortened(facts.cnc.type);
    case L'Z':
      return PaddedNumber(facts.name.typed);
    case L'c':
      return Decimal(ReplyCode(facts.ftp.endReply.empty() ? facts.ftp.loginReply : facts.ftp.endReply));
    case L'f':
      return EntriesText(facts.ftp.entries, language);
    case L'i':
      return Decimal(std::min(echoes.sent + 1, echoes.asked));
    case L'n':
      return Decimal(GoodRungs(run));
    case L'o':
      return PortAdvice(facts.cnc.port, language);
    case L'p':
      return PlaceOfK7Service(run.settings, language);
    case L'r':
      return SecondsText(facts.ftp.connectMs);
    case L's':
      return LastPassedRung(run, language);
    case L't':
      return NextTest(run.settings, language);
    case L'u':
      return Decimal(std::min(facts.k7.answers + 1, facts.k7.asked));
    case L'z':
      return WithoutZeros(PaddedNumber(facts.name.typed));
    default:
      return {};
  }
}

}  // namespace

std::wstring Shortened(const std::wstring& name) {
  if (Columns(name) <= kMaxNameColumns) return name;
  std::wstring start;
  for (const wchar_t letter : name) {
    if (Columns(start + letter) > kMaxNameColumns - 3) break;
    start += letter;
  }
  return start + L"...";
}

const EchoSeries& EchoesOf(const Facts& facts, Rung rung) {
  const bool gateway = rung == Rung::Gateway && !facts.gateway.tried.empty();
  return gateway ? facts.gateway.tried.back() : facts.target.echoes;
}

int ReplyCode(const std::wstring& reply) {
  int code = 0;
  for (const std::wstring& line : Split(reply, L"\r\n")) {
    if (line.empty()) continue;
    const std::wstring digits = line.substr(0, 3);
    const bool isCode = digits.size() == 3 && digits.find_first_not_of(L"0123456789") == std::wstring::npos;
    code = isCode ? ParseInt32(digits).value_or(0) : 0;
  }
  return code;
}

bool HasReply(const std::wstring& reply, int code) {
  const std::vector<std::wstring> lines = Split(reply, L"\r\n");
  return std::any_of(lines.begin(), lines.end(),
                     [code](const std::wstring& line) { return ReplyCode(line) == code; });
}

std::wstring PaddedNumber(const std::wstring& address) {
  for (const std::wstring& number : Split(address, L".")) {
    const size_t digit = number.find_first_not_of(L'0');
    if (digit == 0 || digit == std::wstring::npos) continue;
    if (number.size() - digit > 1 || number[digit] > L'7') return number;
  }
  return {};
}

std::wstring WithFacts(const wchar_t* words, const Run& run, Rung rung, AnswerLanguage language) {
  std::wstring text;
  for (const wchar_t* at = words; *at != L'\0'; ++at) {
    if (*at == L'%' && at[1] != L'\0')
      text += FactOf(*++at, run, rung, language);
    else
      text += *at;
  }
  return text;
}

}  // namespace tarvik::report
