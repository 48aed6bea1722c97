#pragma once

#include <string>
#include <utility>
#include <vector>

#include "report/answer.h"
#include "report/run.h"

namespace tarvik::report::test {

inline constexpr uint32_t kTimedOut = 11010;

/// Builds the run of a PC with the address 192.168.1.10/24 and the gateway 192.168.1.1, step by step. Each
/// step is a rung that has ended.
class RunBuilder {
 public:
  RunBuilder() {
    run_.target = L"192.168.1.100";
    run_.end = RunEnd::Finished;
    run_.settings.generalEdition = true;
    Plan({Rung::Name, Rung::Pc, Rung::Gateway, Rung::Target});
  }

  RunBuilder& Plan(const std::vector<Rung>& rungs) {
    for (const Rung rung : rungs) run_.planned[static_cast<size_t>(rung)] = true;
    return *this;
  }
  RunBuilder& Only(Rung rung) {
    run_.planned.fill(false);
    return Plan({rung});
  }

  RunBuilder& Address(const std::wstring& typed) {
    facts().name = {Progress::Ended, typed, true, typed};
    return *this;
  }
  /// An empty `address`: the name could not be resolved.
  RunBuilder& Name(const std::wstring& typed, const std::wstring& address) {
    facts().name = {Progress::Ended, typed, false, address};
    return *this;
  }

  RunBuilder& Pc(bool sameSubnet, const std::wstring& address = L"192.168.1.10",
                 const std::wstring& mask = L"255.255.255.0", const std::wstring& gateway = L"192.168.1.1") {
    PcFacts& pc = facts().pc;
    pc.progress = Progress::Ended;
    pc.configurationRead = pc.hasMask = true;
    pc.sameSubnet = sameSubnet;
    pc.addresses.push_back({address, mask, {gateway}});
    if (sameSubnet) {
      facts().gateway.progress = Progress::Ended;
      facts().gateway.result = GatewayResult::NotNeeded;
    }
    return *this;
  }
  RunBuilder& PcWithoutMask() {
    Pc(false, L"", L"", L"");
    facts().pc.hasMask = false;
    return *this;
  }

  RunBuilder& Gateway(GatewayResult result) {
    facts().gateway.progress = Progress::Ended;
    facts().gateway.result = result;
    return *this;
  }
  RunBuilder& GatewayPinged(const Echo& echo, const std::wstring& address = L"192.168.1.1") {
    Gateway(echo.replied ? GatewayResult::Answered : GatewayResult::NoneAnswered);
    facts().gateway.tried = {Series(address, {echo})};
    return *this;
  }
  RunBuilder& TargetPinged(const std::vector<Echo>& echoes) {
    facts().target.progress = Progress::Ended;
    facts().target.echoes = Series(facts().name.address, echoes);
    return *this;
  }

  /// A controller on the PC's subnet that has answered the ping.
  RunBuilder& NearAnswers() {
    return Address(L"192.168.1.100").Pc(true).TargetPinged({From(L"192.168.1.100")});
  }

  RunBuilder& Cnc(CncCall call, int16_t result, uint32_t callMs) {
    Plan({Rung::CncLibrary});
    CncFacts& cnc = facts().cnc;
    cnc.progress = Progress::Ended;
    cnc.call = call;
    cnc.result = result;
    cnc.callMs = callMs;
    cnc.port = 8193;
    cnc.timeOutSeconds = 2;
    if (call == CncCall::SystemInfo && result == 0) cnc.type = L"31iB";
    return *this;
  }
  RunBuilder& CncAnswers() { return Cnc(CncCall::SystemInfo, 0, 10); }

  RunBuilder& K7Failed(K7Call call, uint32_t error, const std::wstring& server = L"127.0.0.1") {
    Plan({Rung::K7});
    K7Facts& k7 = facts().k7;
    k7.progress = Progress::Ended;
    k7.failed = call;
    k7.errorCode = static_cast<int32_t>(error);
    k7.server = server;
    return *this;
  }
  RunBuilder& K7Live(int32_t live, int32_t answers) {
    Plan({Rung::K7});
    K7Facts& k7 = facts().k7;
    k7.progress = Progress::Ended;
    k7.asked = k7.answers = answers;
    k7.live = live;
    return *this;
  }

  RunBuilder& FtpRefused(const std::wstring& reply, uint32_t connectMs = 10, bool hasUser = true) {
    Plan({Rung::Ftp});
    FtpFacts& ftp = facts().ftp;
    ftp.progress = Progress::Ended;
    ftp.hasUser = hasUser;
    ftp.loginReply = reply;
    ftp.connectMs = connectMs;
    return *this;
  }
  RunBuilder& FtpListed(int32_t entries, const std::wstring& endReply) {
    FtpRefused(L"230 Login successful.");
    FtpFacts& ftp = facts().ftp;
    ftp.loggedIn = true;
    ftp.entries = entries;
    ftp.enumerated = entries > 0;
    ftp.directoryReply = L"257 \"/\"";
    ftp.endReply = endReply;
    return *this;
  }

  Facts& facts() { return run_.facts; }
  Run& run() { return run_; }

  /// The facts of a ping to 192.168.1.100.
  static TargetFacts OfTarget(const std::vector<Echo>& echoes) {
    return {Progress::Ended, Series(L"192.168.1.100", echoes), Neighbour::Unknown};
  }

  static Echo From(const std::wstring& address, uint32_t roundTripMs = 1) {
    return {true, 0, 0, roundTripMs, address};
  }
  static Echo Refused(uint32_t status, const std::wstring& sender) { return {true, status, 0, 0, sender}; }
  static Echo Lost(uint32_t error = kTimedOut) { return {false, 0, error, 0, {}}; }

 private:
  static EchoSeries Series(const std::wstring& address, const std::vector<Echo>& echoes) {
    EchoSeries series;
    series.address = address;
    series.asked = static_cast<int32_t>(echoes.size());
    for (const Echo& echo : echoes) series.Add(echo, echo.from == address);
    return series;
  }

  Run run_;
};

/// A target on the PC's own subnet, not pinged yet.
inline RunBuilder OnSubnet() { return RunBuilder().Address(L"192.168.1.100").Pc(true); }

/// One character for each rung: "o" good, "!" doubtful, "x" failed, "-" anything else.
inline std::string MarksOf(const Answer& answer) {
  std::string marks;
  for (const RungFinding& rung : answer.rungs)
    marks += rung.state == RungState::Good       ? 'o'
             : rung.state == RungState::Doubtful ? '!'
             : rung.state == RungState::Failed   ? 'x'
                                                 : '-';
  return marks;
}

}  // namespace tarvik::report::test
