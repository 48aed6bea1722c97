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

constexpr int16_t kAccessCodeRejected = 7;

/// The PC's first three octets are the target's: usually one network.
constexpr uint32_t kUsualMask = 0xFFFFFF00;

bool HasDigitsAndDotsOnly(const std::wstring& text) {
  return text.find_first_not_of(L"0123456789.") == std::wstring::npos;
}

/// The error that the echo to the address came back with, or that Windows reported for it; 0 for none.
uint32_t ErrorOf(const EchoSeries& echoes) { return echoes.status != 0 ? echoes.status : echoes.error; }

/// Windows did not even send the echo.
bool NotSent(const EchoSeries& echoes) {
  const uint32_t error = echoes.error;
  return echoes.Replies() == 0 && error != 0 && error != kTimedOut &&
         (error < kNetUnreachable || error > kTtlExpiredReassembly);
}

/// Nothing came back but errors that say so.
bool Silent(const EchoSeries& echoes) {
  return echoes.answered + echoes.elsewhere == 0 && (echoes.refused == 0 || echoes.status == kTimedOut);
}

bool IsOwnAddress(const PcFacts& pc, const std::wstring& address) {
  return std::any_of(pc.addresses.begin(), pc.addresses.end(),
                     [&address](const OwnAddress& own) { return own.address == address; });
}

/// Nobody answered, neither the target nor a gateway before it.
bool NothingAnswered(const Facts& facts) {
  const bool target = facts.target.progress == Progress::Ended && Silent(facts.target.echoes);
  const bool gateway = facts.gateway.progress == Progress::Ended &&
                       facts.gateway.result != GatewayResult::NotNeeded &&
                       facts.gateway.result != GatewayResult::Answered;
  return target || gateway || (facts.pc.progress == Progress::Ended && !facts.pc.hasMask);
}

bool LooksTooNarrow(const Facts& facts) {
  const auto target = AddressNumber(facts.name.address);
  for (const OwnAddress& own : facts.pc.addresses) {
    const auto address = AddressNumber(own.address);
    const auto mask = AddressNumber(own.mask);
    if (target && address && mask && *mask > kUsualMask && (*address & kUsualMask) == (*target & kUsualMask))
      return true;
  }
  return false;
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
  const OwnAddress* const own = OwnAddressFor(facts.pc, facts.name.address);
  const auto address = own == nullptr ? std::nullopt : AddressNumber(own->address);
  return target && address && (*address ^ *target) >> 16 != 0;
}

Finding OfRefusal(const Facts& facts, const std::wstring& address, const std::wstring& sender,
                  uint32_t error) {
  if (IsOwnAddress(facts.pc, sender)) return Finding::TargetAbsent;
  if (error == kTtlExpired) return Finding::TargetLoop;
  const bool unreachable = error >= kNetUnreachable && error <= kPortUnreachable;
  if (unreachable && sender == address) return Finding::TargetPingRejected;
  if (error == kNetUnreachable || error == kBadRoute) return Finding::TargetNoRoute;
  if (error == kHostUnreachable)
    return facts.pc.sameSubnet ? Finding::TargetAbsent : Finding::TargetUnreachable;
  if (error == kProtocolUnreachable || error == kPortUnreachable) return Finding::TargetFirewall;
  return Finding::TargetOtherError;
}

/// A controller with that address answered another test.
bool ReachedOtherwise(const Facts& facts) {
  return !facts.cnc.type.empty() || facts.cnc.result == kAccessCodeRejected || facts.ftp.loggedIn;
}

Finding OfSilentTarget(const Facts& facts) {
  const EchoSeries& echoes = facts.target.echoes;
  if (NotSent(echoes)) return Finding::EchoNotSent;
  if (ErrorOf(echoes) != kTimedOut && ErrorOf(echoes) != 0)
    return OfRefusal(facts, echoes.address, {}, ErrorOf(echoes));
  if (facts.target.neighbour == Neighbour::Present) return Finding::TargetPresent;
  if (!facts.pc.sameSubnet) return Finding::TargetSilentBeyond;
  if (MaskCouldBeTooWide(facts)) return Finding::TargetSilentWideMask;
  if (!facts.name.isAddress) return Finding::TargetSilentByName;
  if (facts.target.neighbour == Neighbour::Absent) return Finding::TargetAbsent;
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
  if (!pc.hasMask) return Finding::PcNoMask;
  if (IsOwnAddress(pc, facts.name.address)) return Finding::PcIsTarget;
  if (!pc.sameSubnet && LooksTooNarrow(facts)) return Finding::PcMaskNarrow;
  const bool several = pc.way.severalCardsFit || OwnAddressesOnSubnet(pc, facts.name.address) > 1;
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
  if (!Silent(echoes)) return Finding::GatewayRefused;
  if (NotSent(echoes)) return Finding::EchoNotSent;
  if (gateway.neighbour == Neighbour::Present) return Finding::GatewayPresent;
  if (PcIsFarFromTarget(facts)) return Finding::GatewaySilentFar;
  if (gateway.neighbour == Neighbour::Absent) return Finding::GatewayAbsent;
  return Finding::GatewaySilent;
}

Finding TargetFinding(const Facts& facts) {
  const EchoSeries& echoes = facts.target.echoes;
  if (echoes.addressRejected) return NameFinding(facts);
  if (echoes.asked <= 0) return Finding::PingCountZero;
  if (echoes.answered > 0) return echoes.answered < echoes.sent ? Finding::TargetLossy : Finding::TargetGood;
  if (echoes.elsewhere > 0) return Finding::TargetElsewhere;
  if (ReachedOtherwise(facts))
    return echoes.refused > 0 ? Finding::TargetPingRejected : Finding::TargetPingBlocked;
  if (Silent(echoes)) return OfSilentTarget(facts);
  return OfRefusal(facts, echoes.address, echoes.otherSender, echoes.status);
}

}  // namespace tarvik::report
