// What the facts of the CNC library, the K7 server and the FTP server mean.

#include "report/finding_words.h"
#include "report/findings.h"
#include "report/own_address.h"

namespace tarvik::report {
namespace {

/// The CNC library's result when the controller rejects the access code. The meaning of its other numbers is
/// not known here; only how long a call took distinguishes them.
constexpr int16_t kCodeRejected = 7;

// K7 API library
constexpr uint32_t kUnitNotRecognized = 0x1009F004;
constexpr uint32_t kServerUnknown = 0x1009F005;
constexpr uint32_t kCannotConnect = 0x1009F101;

/// A refused connection is repeated a few times, which takes less; a silent one takes longer.
constexpr uint32_t kMaxRefusedFtpMs = 15'000;

/// WinINet's error when a proxy of this PC does not let FTP through: ERROR_INTERNET_INVALID_OPERATION.
constexpr uint32_t kProxyRefused = 12016;

/// A listing that arrives begins earlier; a blocked data connection takes longer.
constexpr uint32_t kMaxEmptyListingMs = 10'000;

/// No device with the target's address has replied to a ping.
bool IsUnpinged(const Facts& facts) { return facts.target.echoes.Replies() == 0; }

bool TookWholeTimeOut(const CncFacts& cnc) {
  return cnc.timeOutSeconds > 0 && cnc.callMs >= static_cast<uint32_t>(cnc.timeOutSeconds) * 900;
}

bool FailedAtOnce(const CncFacts& cnc) {
  const uint32_t limitMs = cnc.timeOutSeconds > 0 ? static_cast<uint32_t>(cnc.timeOutSeconds) * 500 : 3000;
  return cnc.callMs < limitMs;
}

Finding OfFailedConnection(const Facts& facts) {
  const CncFacts& cnc = facts.cnc;
  // The controller has asked for the code.
  const bool open = cnc.portAnswer == PortAnswer::Open || cnc.call == CncCall::ConnectWithCode;
  if (!open && cnc.portAnswer == PortAnswer::Refused) return Finding::CncPortClosed;
  if (!open && cnc.portAnswer == PortAnswer::Silent)
    return IsUnpinged(facts) ? Finding::CncPortSilentUnpinged : Finding::CncPortSilent;
  if (TookWholeTimeOut(cnc)) return open ? Finding::CncPortOpenTimeOut : Finding::CncTimedOut;
  if (open) return Finding::CncPortOpen;
  return FailedAtOnce(cnc) ? Finding::CncFailedAtOnce : Finding::CncFailedLater;
}

Finding OfFailedK7(const K7Facts& k7) {
  if (k7.failed == K7Call::AllocHandle) return Finding::K7NoHandle;
  switch (static_cast<uint32_t>(k7.errorCode)) {
    case kUnitNotRecognized:
      return Finding::K7UnitUnknown;
    case kServerUnknown:
      return Finding::K7ServerUnknown;
    case kCannotConnect:
      return IsThisPc(k7.server) ? Finding::K7ServerSilent : Finding::K7ServerSilentElsewhere;
    default:
      return Finding::K7Failed;
  }
}

Finding OfFailedLogin(const Facts& facts) {
  const FtpFacts& ftp = facts.ftp;
  if (ftp.loginReply.empty()) {
    if (ftp.connectError == kProxyRefused) return Finding::FtpProxy;
    if (ftp.portAnswer == PortAnswer::Refused) return Finding::FtpPortClosed;
    if (ftp.portAnswer == PortAnswer::Silent)
      return IsUnpinged(facts) ? Finding::FtpPortSilentUnpinged : Finding::FtpPortSilent;
    if (ftp.portAnswer == PortAnswer::Open) return Finding::FtpPortOpen;
    return ftp.connectMs < kMaxRefusedFtpMs ? Finding::FtpFailedAtOnce : Finding::FtpSilent;
  }
  switch (ReplyCode(ftp.loginReply)) {
    case 220:
      return Finding::FtpHungUp;
    case 421:
      return Finding::FtpFull;
    case 331:
    case 332:
    case 430:
    case 530:
      return ftp.hasUser ? Finding::FtpLoginRefused : Finding::FtpUserMissing;
    default:
      return Finding::FtpRefused;
  }
}

/// The server's last reply decides: Windows reports an interrupted listing and an empty one alike.
Finding OfListing(const FtpFacts& ftp) {
  if (ftp.loginReply.empty() && ftp.directoryReply.empty() && ftp.endReply.empty())
    return Finding::FtpNoReply;
  const int code = ReplyCode(ftp.endReply);
  const bool transferred = HasReply(ftp.endReply, 226) || HasReply(ftp.endReply, 250);
  if (ftp.entries > 0) return transferred ? Finding::FtpGood : Finding::FtpCutShort;
  if (transferred) return Finding::FtpEmpty;
  if (code >= 500 || code == 450) return Finding::FtpListingRefused;
  if (code >= 400 || code == 150 || code == 221) return Finding::FtpNoListing;
  return ftp.listMs > kMaxEmptyListingMs ? Finding::FtpNoListing : Finding::FtpCutBefore;
}

}  // namespace

Finding CncFinding(const Facts& facts) {
  const CncFacts& cnc = facts.cnc;
  if (cnc.libraryMissing) return Finding::CncLibraryMissing;
  if (cnc.addressMissing) return Finding::NoAddress;
  if (cnc.codeMissing) return Finding::CncCodeMissing;
  if (cnc.optionMissing) return Finding::CncOptionMissing;
  if (cnc.result == 0) return cnc.call == CncCall::SystemInfo ? Finding::CncGood : Finding::Broken;
  if (cnc.call == CncCall::Options || cnc.call == CncCall::SystemInfo)
    return TookWholeTimeOut(cnc) ? Finding::CncThenTimedOut : Finding::CncThenFailed;
  if (cnc.result == kCodeRejected) return cnc.codeGiven ? Finding::CncCodeWrong : Finding::CncCodeNeeded;
  return OfFailedConnection(facts);
}

Finding K7Finding(const Facts& facts) {
  const K7Facts& k7 = facts.k7;
  if (k7.libraryMissing) return Finding::K7LibraryMissing;
  if (k7.addressMissing) return Finding::NoAddress;
  if (k7.failed != K7Call::None) return OfFailedK7(k7);
  if (k7.countInvalid) return Finding::K7CountInvalid;
  if (k7.answers == 0) return Finding::K7CountZero;
  if (k7.live == 0) return Finding::K7NotLive;
  return k7.live < k7.answers ? Finding::K7SometimesLive : Finding::K7Good;
}

Finding FtpFinding(const Facts& facts) {
  const FtpFacts& ftp = facts.ftp;
  if (ftp.libraryMissing) return Finding::FtpLibraryMissing;
  if (ftp.addressMissing) return Finding::NoAddress;
  return ftp.loggedIn ? OfListing(ftp) : OfFailedLogin(facts);
}

}  // namespace tarvik::report
