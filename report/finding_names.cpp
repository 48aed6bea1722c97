#include "report/finding_names.h"

#include <cstddef>
#include <iterator>

#include "platform/text.h"

namespace tarvik::report {
namespace {

// In the order of the enumeration. A test compares them with it.
constexpr std::string_view kFindingNames[] = {
    "NotTested",
    "NotInThisRun",
    "NotReached",
    "Stopped",
    "StoppedPartly",
    "PingCountZero",
    "Broken",
    "AllGood",
    "RunningName",
    "RunningPc",
    "RunningGateway",
    "RunningTarget",
    "RunningCncBegins",
    "RunningCnc",
    "RunningK7Connect",
    "RunningK7",
    "RunningFtp",
    "NameIsAddress",
    "NameResolved",
    "NoAddress",
    "NameUnknown",
    "AddressMistyped",
    "AddressRejected",
    "AddressZeros",
    "PcGood",
    "PcNoConfiguration",
    "PcNoMask",
    "PcCableOut",
    "PcWirelessOff",
    "PcIsTarget",
    "PcMaskNarrow",
    "PcTwoCards",
    "GatewayNotNeeded",
    "GatewayGood",
    "GatewayLossy",
    "GatewayRefused",
    "GatewayElsewhere",
    "GatewayNone",
    "GatewayNoneByName",
    "GatewayNoneSeveral",
    "GatewayOutside",
    "GatewaySilent",
    "GatewaySilentFar",
    "GatewayAbsent",
    "GatewayPresent",
    "EchoNotSent",
    "TargetGood",
    "TargetLossy",
    "TargetElsewhere",
    "TargetSilent",
    "TargetSilentBeyond",
    "TargetSilentByName",
    "TargetSilentWideMask",
    "TargetAbsent",
    "TargetPresent",
    "TargetPingBlocked",
    "TargetPingRejected",
    "TargetNoRoute",
    "TargetUnreachable",
    "TargetNotReached",
    "TargetFirewall",
    "TargetLoop",
    "TargetOtherError",
    "CncLibraryMissing",
    "CncGood",
    "CncGoodWithoutPing",
    "CncCodeMissing",
    "CncCodeNeeded",
    "CncCodeWrong",
    "CncFailedAtOnce",
    "CncTimedOut",
    "CncFailedLater",
    "CncPortClosed",
    "CncPortSilent",
    "CncPortSilentUnpinged",
    "CncPortOpen",
    "CncPortOpenTimeOut",
    "CncThenFailed",
    "CncThenTimedOut",
    "CncOptionMissing",
    "K7LibraryMissing",
    "K7Good",
    "K7NotLive",
    "K7SometimesLive",
    "K7CountZero",
    "K7CountInvalid",
    "K7NoHandle",
    "K7ServerSilent",
    "K7ServerSilentElsewhere",
    "K7ServerUnknown",
    "K7UnitUnknown",
    "K7Failed",
    "FtpLibraryMissing",
    "FtpGood",
    "FtpEmpty",
    "FtpNoReply",
    "FtpNoListing",
    "FtpListingRefused",
    "FtpCutBefore",
    "FtpCutShort",
    "FtpProxy",
    "FtpFailedAtOnce",
    "FtpSilent",
    "FtpPortClosed",
    "FtpPortSilent",
    "FtpPortSilentUnpinged",
    "FtpPortOpen",
    "FtpLoginRefused",
    "FtpUserMissing",
    "FtpFull",
    "FtpHungUp",
    "FtpRefused",
};
static_assert(std::size(kFindingNames) == kFindingCount);

}  // namespace

std::string_view NameOf(Finding finding) { return kFindingNames[static_cast<size_t>(finding)]; }

std::optional<Finding> FindingNamed(std::wstring_view name) {
  const std::string wanted = NarrowAscii(name);
  for (size_t i = 0; i < std::size(kFindingNames); ++i)
    if (kFindingNames[i] == wanted) return static_cast<Finding>(i);
  return std::nullopt;
}

}  // namespace tarvik::report
