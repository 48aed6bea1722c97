#pragma once

namespace tarvik::report {

/// What the facts of a rung, or of a whole run, mean. finding_texts.cpp has a row for each, in this order.
enum class Finding {
  // Any rung
  NotTested,
  NotInThisRun,
  NotReached,  ///< the run ended before it
  Stopped,
  StoppedPartly,  ///< some rungs had passed
  PingCountZero,
  Broken,  ///< an error dialog ended the test
  AllGood,

  // While a rung runs
  RunningName,
  RunningPc,
  RunningGateway,
  RunningTarget,
  RunningCncBegins,  ///< its time-out is not known yet
  RunningCnc,
  RunningK7Connect,
  RunningK7,
  RunningFtp,

  // Name
  NameIsAddress,
  NameResolved,
  NoAddress,  ///< the address box is empty; other rungs use this, too
  NameUnknown,
  AddressMistyped,
  AddressRejected,  ///< zeros in front of a number that Windows therefore cannot read
  AddressZeros,     ///< zeros in front of a number that Windows reads as an octal one

  // PC
  PcGood,
  PcNoConfiguration,
  PcNoMask,
  PcCableOut,
  PcWirelessOff,
  PcIsTarget,    ///< the target's address is the PC's own
  PcMaskNarrow,  ///< the target seems to be on the PC's network, but not according to the PC's mask
  PcTwoCards,    ///< several cards are on the target's subnet, and the target is silent

  // Gateway
  GatewayNotNeeded,
  GatewayGood,
  GatewayLossy,
  GatewayRefused,    ///< only error reports came back
  GatewayElsewhere,  ///< another address answered
  GatewayNone,
  GatewayNoneByName,   ///< and the target's address comes from a name
  GatewayNoneSeveral,  ///< and the PC has several addresses
  GatewayOutside,
  GatewaySilent,
  GatewaySilentFar,  ///< and the PC's own address looks wrong for the target
  GatewayAbsent,     ///< nobody on the subnet has the gateway's address
  GatewayPresent,    ///< a device has it

  // Target
  EchoNotSent,  ///< Windows could not send it; for the gateway, too
  TargetGood,
  TargetLossy,
  TargetElsewhere,  ///< another address answered
  TargetSilent,
  TargetSilentBeyond,    ///< and the gateway answered
  TargetSilentByName,    ///< and its address comes from a name
  TargetSilentWideMask,  ///< and the PC's mask could be too wide
  TargetAbsent,          ///< nobody on the subnet has its address
  TargetPresent,         ///< a device has it
  TargetPingBlocked,     ///< silent, but a higher rung got an answer
  TargetPingRejected,    ///< the target itself reported an error
  TargetNoRoute,
  TargetUnreachable,  ///< a router could not deliver the echo
  TargetNotReached,   ///< Windows reports an error without saying who found it
  TargetFirewall,
  TargetLoop,
  TargetOtherError,

  // CNC library
  CncLibraryMissing,
  CncGood,
  CncGoodWithoutPing,
  CncCodeMissing,
  CncCodeNeeded,
  CncCodeWrong,
  CncFailedAtOnce,
  CncTimedOut,  ///< connecting took the whole time-out
  CncFailedLater,
  CncPortClosed,
  CncPortSilent,
  CncPortSilentUnpinged,  ///< and nothing has answered a ping
  CncPortOpen,            ///< the port is open, but connecting failed before the time-out
  CncPortOpenTimeOut,     ///< the port is open, but nothing answered
  CncThenFailed,          ///< a call after connecting failed
  CncThenTimedOut,
  CncOptionMissing,

  // K7
  K7LibraryMissing,
  K7Good,
  K7NotLive,
  K7SometimesLive,
  K7CountZero,
  K7CountInvalid,
  K7NoHandle,
  K7ServerSilent,
  K7ServerSilentElsewhere,  ///< the server is on another PC
  K7ServerUnknown,
  K7UnitUnknown,
  K7Failed,

  // FTP
  FtpLibraryMissing,
  FtpGood,
  FtpEmpty,
  FtpNoReply,  ///< logged in, but the server never replied: a proxy did
  FtpNoListing,
  FtpListingRefused,
  FtpCutBefore,
  FtpCutShort,
  FtpProxy,  ///< a proxy refused the connection
  FtpFailedAtOnce,
  FtpSilent,
  FtpPortClosed,
  FtpPortSilent,
  FtpPortSilentUnpinged,  ///< and nothing has answered a ping
  FtpPortOpen,
  FtpLoginRefused,
  FtpUserMissing,
  FtpFull,
  FtpHungUp,
  FtpRefused,
};
inline constexpr int kFindingCount = static_cast<int>(Finding::FtpRefused) + 1;

}  // namespace tarvik::report
