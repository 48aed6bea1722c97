// What the facts of the Ping check mean: name, PC, gateway and target.

#include <algorithm>

#include "report/finding_words.h"
#include "report/findings.h"
#include "report/own_address.h"

namespace tarvik::report {
namespace {

// IP_STATUS codes
constexpr uint32_t kNetUnreachable = 11002;
constexpr uint32_t kHostUnreachable = 11003;
constexpr uint32_t kProtocolUnreachable = 11004;
constexpr uint32_t kPortUnreachable = 11005;
constexpr uint32_t kTimedOut = 11010;
constexpr uint32_t kBadRoute = 11012;
constexpr uint32_t kTtlExpired = 11013;
constexpr uint32_t kTtlExpiredReassembly = 11014;
constexpr uint32_t kGeneralFailure = 11050;

constexpr int16_t kAccessCodeRejected = 7;

constexpr uint32_t kUsualMask = 0xFFFFFF00;

bool HasDigitsAndDotsOnly(const std::wstring& text) {
  return text.find_first_not_of(L"0123456789.") == std::wstring::npos;
}

/// The error that the echo to the address came back with, or that Windows reported for it; 0 for none.
uint32_t ErrorOf(const EchoSeries& echoes) { return echoes.status != 0 ? echoes.status : echoes.error; }

bool IsAnswered(const EchoSeries& echoes) { return echoes.answered + echoes.elsewhere > 0; }

/// Windows did not even send the echo.
bool NotSent(const EchoSeries& echoes) {
  if (IsAnswered(echoes)) return false;
  if (echoes.refused > 0) return echoes.status == kGeneralFailure;
  const uint32_t error = echoes.error;
  return error != 0 && error != kTimedOut && (error < kNetUnreachable || error > kTtlExpiredReassembly);
}

bool IsOwnAddress(const PcFacts& pc, const std::wstring& address) {
  return std::any_of(pc.addresses.begin(), pc.addresses.end(),
                     [&address](const OwnAddress& own) { return own.address == address; });
}

/// The latest reply is a report that Windows itself has made: no device answered.
bool IsReportOfThisPc(const PcFacts& pc, const EchoSeries& echoes) {
  return !IsAnswered(echoes) && echoes.refused > 0 &&
         (echoes.status == kGeneralFailure || IsOwnAddress(pc, echoes.otherSender));
}

/// Nothing came back but errors that say so.
bool Silent(const PcFacts& pc, const EchoSeries& echoes) {
  return !IsAnswered(echoes) &&
         (echoes.refused == 0 || echoes.status == kTimedOut || IsReportOfThisPc(pc, echoes));
}

/// What is known about a silent device. Windows reports an address that nobody has as unreachable.
Neighbour NeighbourOf(const PcFacts& pc, const EchoSeries& echoes, Neighbour seen) {
  return IsReportOfThisPc(pc, echoes) ? Neighbour::Absent : seen;
}

/// An exception ended the series before its first echo.
bool NeverBegan(const EchoSeries& echoes) { return echoes.sent == 0 && !echoes.addressRejected; }

bool GatewayAnswered(const Facts& facts) {
  const GatewayFacts& gateway = facts.gateway;
  return gateway.result == GatewayResult::Answered &&
         (gateway.tried.empty() || !Silent(facts.pc, gateway.tried.back()));
}

/// Nobody answered, neither the target nor a gateway before it.
bool NothingAnswered(const Facts& facts) {
  if (IsAnswered(facts.target.echoes)) return false;
  const bool target = facts.target.progress == Progress::Ended && Silent(facts.pc, facts.target.echoes);
  const bool gateway = facts.gateway.progress == Progress::Ended &&
                       facts.gateway.result != GatewayResult::NotNeeded && !GatewayAnswered(facts);
  return target || gateway || (facts.pc.progress == Progress::Ended && !facts.pc.hasMask);
}

/// True when every address is one that Windows chose itself (169.254.x.x) because no DHCP server gave one.
bool HasStopgapAddressesOnly(const PcFacts& pc) {
  constexpr uint32_t kStopgapMask = 0xFFFF0000;
  constexpr uint32_t kStopgap = 0xA9FE0000;  // 169.254.0.0
  bool any = false;
  for (const OwnAddress& own : pc.addresses) {
    const auto address = AddressNumber(own.address);
    if (!address || !IsOnSubnet(own, own.address)) continue;
    if ((*address & kStopgapMask) != kStopgap) return false;
    any = true;
  }
  return any;
}

bool MaskCouldBeTooWide(const Facts& facts) {
  const OwnAddress* const own = OwnAddressFor(facts.pc, facts.name.address);
  if (own == nullptr) return false;
  const auto address = AddressNumber(own->address);
  const auto mask = AddressNumber(own->mask);
  const auto target = AddressNumber(facts.name.address);
  return address && mask && target && *mask < kUsualMask && (*address & kUsualMask) != (*target & kUsualMask);
}

/// The PC's address and the target's have not even the first two octets in common.
bool PcIsFarFromTarget(const Facts& facts) {
  const auto target = AddressNumber(facts.name.address);
  const OwnAddress* const own = DecisiveOwnAddress(facts);
  const auto address = own == nullptr ? std::nullopt : AddressNumber(own->address);
  return target && address && (*address ^ *target) >> 16 != 0;
}

/// A device reported the error.
Finding OfRefusal(const Facts& facts) {
  const EchoSeries& echoes = facts.target.echoes;
  const uint32_t error = echoes.status;
  if (error == kTtlExpired) return Finding::TargetLoop;
  const bool unreachable = error >= kNetUnreachable && error <= kPortUnreachable;
  if (unreachable && echoes.otherSender == echoes.address) return Finding::TargetPingRejected;
  if (error == kNetUnreachable || error == kBadRoute) return Finding::TargetNoRoute;
  if (error == kHostUnreachable)
    return facts.pc.sameSubnet ? Finding::TargetAbsent : Finding::TargetUnreachable;
  if (error == kProtocolUnreachable || error == kPortUnreachable) return Finding::TargetFirewall;
  return Finding::TargetOtherError;
}

/// A controller with that address has answered another test since the ping.
bool ReachedOtherwise(const Facts& facts) {
  const bool byLibrary = !facts.cnc.type.empty() || facts.cnc.result == kAccessCodeRejected;
  return (byLibrary && !facts.cnc.beforePing) || (facts.ftp.loggedIn && !facts.ftp.beforePing);
}

Finding OfSilentTarget(const Facts& facts) {
  const EchoSeries& echoes = facts.target.echoes;
  if (NotSent(echoes)) return Finding::EchoNotSent;
  const bool ofThisPc = IsReportOfThisPc(facts.pc, echoes);
  if (const uint32_t error = ErrorOf(echoes); !ofThisPc && error != kTimedOut && error != 0) {
    const bool absent = error == kHostUnreachable && facts.pc.sameSubnet;
    return absent ? Finding::TargetAbsent : Finding::TargetNotReached;
  }
  const Neighbour neighbour = NeighbourOf(facts.pc, echoes, facts.target.neighbour);
  if (neighbour == Neighbour::Present) return Finding::TargetPresent;
  if (!facts.pc.sameSubnet)
    return GatewayFinding(facts) == Finding::GatewayGood ? Finding::TargetSilentBeyond
                                                         : Finding::TargetSilent;
  if (MaskCouldBeTooWide(facts)) return Finding::TargetSilentWideMask;
  if (!facts.name.isAddress) return Finding::TargetSilentByName;
  if (neighbour == Neighbour::Absent) return Finding::TargetAbsent;
  return Finding::TargetSilent;
}

}  // namespace

Finding NameFinding(const Facts& facts) {
  const NameFacts& name = facts.name;
  if (name.address.empty()) {
    if (name.typed.find_first_not_of(L' ') == std::wstring::npos) return Finding::NoAddress;
    return HasDigitsAndDotsOnly(name.typed) ? Finding::AddressMistyped : Finding::NameUnknown;
  }
  if (!name.isAddress) return Finding::NameResolved;
  const bool rejected = facts.target.echoes.addressRejected ||
                        std::any_of(facts.gateway.tried.begin(), facts.gateway.tried.end(),
                                    [](const EchoSeries& echoes) { return echoes.addressRejected; });
  const std::wstring padded = PaddedNumber(name.typed);
  if (padded.empty()) return rejected ? Finding::AddressMistyped : Finding::NameIsAddress;
  const bool octal = padded.find_first_of(L"89") == std::wstring::npos;
  return rejected || !octal ? Finding::AddressRejected : Finding::AddressZeros;
}

Finding PcFinding(const Facts& facts) {
  const PcFacts& pc = facts.pc;
  if (!pc.configurationRead) return Finding::PcNoConfiguration;
  if (const PcCard* const card = CardOf(pc.way, facts.name.address);
      card != nullptr && !card->up && NothingAnswered(facts)) {
    if (card->kind == CardKind::Wireless) return Finding::PcWirelessOff;
    if (card->kind == CardKind::Cable) return Finding::PcCableOut;
  }
  if (!pc.hasMask || (!pc.sameSubnet && HasStopgapAddressesOnly(pc))) return Finding::PcNoMask;
  if (IsOwnAddress(pc, facts.name.address)) return Finding::PcIsTarget;
  if (!pc.sameSubnet && TooNarrowOwnAddress(pc, facts.name.address) != nullptr) return Finding::PcMaskNarrow;
  // Two addresses of one card raise no doubt. Only where Windows does not report the cards, their number
  // counts.
  const bool several =
      pc.way.cards.empty() ? OwnAddressesOnSubnet(pc, facts.name.address) > 1 : pc.way.severalCardsFit;
  if (several && NothingAnswered(facts)) return Finding::PcTwoCards;
  return Finding::PcGood;
}

Finding GatewayFinding(const Facts& facts) {
  const GatewayFacts& gateway = facts.gateway;
  if (gateway.result == GatewayResult::NotNeeded) return Finding::GatewayNotNeeded;
  if (gateway.result == GatewayResult::NoneUsable) return Finding::GatewayOutside;
  if (gateway.result == GatewayResult::NoneConfigured) {
    if (!facts.name.isAddress) return Finding::GatewayNoneByName;
    return facts.pc.addresses.size() > 1 ? Finding::GatewayNoneSeveral : Finding::GatewayNone;
  }
  if (gateway.tried.empty()) return Finding::GatewaySilent;
  const EchoSeries& echoes = gateway.tried.back();
  if (echoes.asked <= 0) return Finding::PingCountZero;
  if (echoes.answered > 0)
    return echoes.answered < echoes.sent ? Finding::GatewayLossy : Finding::GatewayGood;
  if (echoes.elsewhere > 0) return Finding::GatewayElsewhere;
  if (NeverBegan(echoes)) return Finding::Broken;
  if (!Silent(facts.pc, echoes)) return Finding::GatewayRefused;
  if (NotSent(echoes)) return Finding::EchoNotSent;
  const Neighbour neighbour = NeighbourOf(facts.pc, echoes, gateway.neighbour);
  if (neighbour == Neighbour::Present) return Finding::GatewayPresent;
  if (PcIsFarFromTarget(facts)) return Finding::GatewaySilentFar;
  if (neighbour == Neighbour::Absent) return Finding::GatewayAbsent;
  return Finding::GatewaySilent;
}

Finding TargetFinding(const Facts& facts) {
  const EchoSeries& echoes = facts.target.echoes;
  if (echoes.addressRejected) return NameFinding(facts);
  if (echoes.asked <= 0) return Finding::PingCountZero;
  if (echoes.answered > 0) return echoes.answered < echoes.sent ? Finding::TargetLossy : Finding::TargetGood;
  if (echoes.elsewhere > 0) return Finding::TargetElsewhere;
  if (NeverBegan(echoes)) return Finding::Broken;
  const bool silent = Silent(facts.pc, echoes);
  if (ReachedOtherwise(facts)) return silent ? Finding::TargetPingBlocked : Finding::TargetPingRejected;
  return silent ? OfSilentTarget(facts) : OfRefusal(facts);
}

}  // namespace tarvik::report
