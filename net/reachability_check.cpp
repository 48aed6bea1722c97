#include "net/reachability_check.h"

#include <optional>
#include <vector>

#include "net/local_configuration.h"
#include "net/neighbour.h"
#include "net/ping_host.h"
#include "net/tcp_ip_host.h"
#include "net/way_to_target.h"
#include "platform/text.h"

namespace tarvik {
namespace {

enum class GatewaySearch { NoneConfigured, NoneUsable, NoneAnswered, Stopped, Answered };

class Check {
 public:
  Check(const report::CheckContext& context, const NetLibraries& libraries, int32_t count)
      : context_(context), libraries_(libraries), count_(count) {}

  bool Run(const std::wstring& target, const std::function<void()>& addToHistory);

 private:
  void AddMessage(Message message);
  uint32_t ToAddress(const std::wstring& dotted);
  bool SameSubnet(const LocalAddressRecord& local, uint32_t address);
  std::wstring Resolve(TcpIpHost& host, const std::wstring& target);
  bool ReadConfiguration();
  bool Ping(const std::wstring& address, uint32_t number, report::EchoSeries& series);
  void RecordConfiguration();
  bool CheckPc(uint32_t targetAddress);
  bool PingTarget(const std::wstring& address, uint32_t number);
  void AddDetails(const LocalAddressRecord& local, const std::wstring& address);
  GatewaySearch SearchGateway();
  bool CheckGateway();
  report::Facts& Facts() { return context_.recorder.run.facts; }
  void SetProgress(report::Progress& progress, report::Progress value);
  /// The progress of a rung that pings and got no reply.
  report::Progress WithoutReply(const report::EchoSeries& series) const;
  /// A second look after a rung that pinged in vain; nothing is sent. Unknown when the rung was stopped.
  report::Neighbour LookAgain(report::Progress progress, const report::EchoSeries& series);

  const report::CheckContext& context_;
  const NetLibraries& libraries_;
  const int32_t count_;
  std::vector<LocalAddressRecord> locals_;
  bool gatewaysLeft_ = false;                              ///< a stop came before the next gateway
  uint32_t pinged_ = 0;                                    ///< the latest address
  report::Neighbour before_ = report::Neighbour::Unknown;  ///< of `pinged_` before its first echo
};

void Check::AddMessage(Message message) {
  if (const auto text = context_.texts.Get(message)) context_.results.AddToList(*text);
}

uint32_t Check::ToAddress(const std::wstring& dotted) {
  // inet_addr returns INADDR_NONE for an empty text, which would pass for a subnet mask.
  return dotted.empty() ? 0 : libraries_.winsock.inet_addr(NarrowAscii(dotted).c_str());
}

bool Check::SameSubnet(const LocalAddressRecord& local, uint32_t address) {
  const uint32_t mask = ToAddress(local.SubnetMask);
  return (mask & ToAddress(local.IpAddress)) == (mask & address);
}

std::wstring Check::Resolve(TcpIpHost& host, const std::wstring& target) {
  report::NameFacts& facts = Facts().name;
  facts.typed = target;
  SetProgress(facts.progress, report::Progress::Running);
  facts.isAddress = TcpIpHost::IsIpAddr(target);
  if (facts.isAddress) return target;
  // Windows resolves an empty name to this PC, which would answer every ping.
  const bool empty = TrimSpaces(target).empty();
  std::wstring address = empty ? std::wstring() : host.IpAddr(target);
  if (address.empty()) {
    AddMessage(Message::CannotResolve);
    context_.results.AddToList(L"");
  } else {
    context_.results.AddToList(target + L" -> " + address);
  }
  return address;
}

bool Check::ReadConfiguration() {
  if (GetIpConfiguration(context_, libraries_, locals_)) return true;
  const bool stopped = context_.pump.StopRequested();
  if (!stopped) AddMessage(Message::NoConfiguration);
  Facts().pc.progress = stopped ? report::Progress::Stopped : report::Progress::Ended;
  return false;
}

void Check::RecordConfiguration() {
  report::PcFacts& facts = Facts().pc;
  facts.configurationRead = true;
  for (const LocalAddressRecord& local : locals_)
    facts.addresses.push_back({local.IpAddress, local.SubnetMask, local.Gateways});
}

void Check::SetProgress(report::Progress& progress, report::Progress value) {
  progress = value;
  context_.recorder.Changed();
}

report::Progress Check::WithoutReply(const report::EchoSeries& series) const {
  return context_.pump.StopRequested() && series.sent < series.asked ? report::Progress::Stopped
                                                                     : report::Progress::Ended;
}

report::Neighbour Check::LookAgain(report::Progress progress, const report::EchoSeries& series) {
  if (progress != report::Progress::Ended || series.sent == 0) return report::Neighbour::Unknown;
  return Between(before_, LookForNeighbour(libraries_.ipHelper, pinged_));
}

bool Check::Ping(const std::wstring& address, uint32_t number, report::EchoSeries& series) {
  pinged_ = number;
  before_ = LookForNeighbour(libraries_.ipHelper, number);
  return PingHost(context_, libraries_, address, count_, series);
}

void Check::AddDetails(const LocalAddressRecord& local, const std::wstring& address) {
  context_.results.AddToList(L"  Local      :" + local.IpAddress);
  for (const std::wstring& gateway : local.Gateways) context_.results.AddToList(L"  GateWay    :" + gateway);
  context_.results.AddToList(L"  SubnetMask :" + local.SubnetMask);
  context_.results.AddToList(L"  Target     :" + address);
}

GatewaySearch Check::SearchGateway() {
  GatewaySearch result = GatewaySearch::NoneConfigured;
  for (const LocalAddressRecord& local : locals_) {
    for (const std::wstring& gateway : local.Gateways) {
      const uint32_t address = ToAddress(gateway);
      // Windows also reports "no gateway" as an entry that is empty or 0.0.0.0.
      if (address == 0) continue;
      if (result == GatewaySearch::NoneConfigured) result = GatewaySearch::NoneUsable;
      if (!SameSubnet(local, address)) continue;
      if (context_.pump.StopRequested()) {
        gatewaysLeft_ = true;
        return result == GatewaySearch::NoneAnswered ? result : GatewaySearch::Stopped;
      }
      context_.results.AddToList(L"GateWay (" + gateway + L") PING test ....");
      if (Ping(gateway, address, Facts().gateway.tried.emplace_back())) return GatewaySearch::Answered;
      result = GatewaySearch::NoneAnswered;
    }
  }
  return result;
}

bool Check::CheckGateway() {
  report::GatewayFacts& facts = Facts().gateway;
  SetProgress(facts.progress, report::Progress::Running);
  const GatewaySearch search = SearchGateway();
  facts.progress = report::Progress::Ended;
  switch (search) {
    case GatewaySearch::Answered:
      facts.result = report::GatewayResult::Answered;
      return true;
    case GatewaySearch::NoneConfigured:
      facts.result = report::GatewayResult::NoneConfigured;
      AddMessage(Message::NoGateway);
      break;
    case GatewaySearch::NoneUsable:
      facts.result = report::GatewayResult::NoneUsable;
      AddMessage(Message::SubnetMismatch);
      AddMessage(Message::CannotAccessGateway);
      break;
    case GatewaySearch::NoneAnswered:
      facts.result = report::GatewayResult::NoneAnswered;
      facts.progress = gatewaysLeft_ ? report::Progress::Stopped : WithoutReply(facts.tried.back());
      facts.neighbour = LookAgain(facts.progress, facts.tried.back());
      AddMessage(Message::CannotPingGateway);
      AddMessage(Message::CheckGateway);
      break;
    case GatewaySearch::Stopped:
      facts.progress = report::Progress::Stopped;
      break;
  }
  return false;
}

bool Check::CheckPc(uint32_t targetAddress) {
  report::PcFacts& facts = Facts().pc;
  for (const LocalAddressRecord& local : locals_) {
    if (ToAddress(local.SubnetMask) == 0) continue;
    facts.hasMask = true;
    if (SameSubnet(local, targetAddress)) facts.sameSubnet = true;
  }
  facts.progress = report::Progress::Ended;
  if (!facts.hasMask) AddMessage(Message::NoSubnetMask);
  return facts.hasMask;
}

bool Check::PingTarget(const std::wstring& address, uint32_t number) {
  report::TargetFacts& facts = Facts().target;
  SetProgress(facts.progress, report::Progress::Running);
  const bool answered = Ping(address, number, facts.echoes);
  facts.progress = answered ? report::Progress::Ended : WithoutReply(facts.echoes);
  if (!answered) facts.neighbour = LookAgain(facts.progress, facts.echoes);
  context_.recorder.Changed();
  return answered;
}

bool Check::Run(const std::wstring& target, const std::function<void()>& addToHistory) {
  Facts().name = {};
  Facts().pc = {};
  Facts().gateway = {};
  Facts().target = {};
  TcpIpHost host(libraries_.winsock, libraries_.codePage, context_.boxes);
  const std::wstring address = Resolve(host, target);
  Facts().name.address = address;
  Facts().name.progress = report::Progress::Ended;
  if (address.empty()) return false;
  addToHistory();

  SetProgress(Facts().pc.progress, report::Progress::Running);
  if (!ReadConfiguration()) return false;
  RecordConfiguration();
  const uint32_t number = ToAddress(address);
  Facts().pc.way = FindWayToTarget(libraries_.ipHelper, number);
  if (!CheckPc(number)) return false;

  const bool sameNetwork = Facts().pc.sameSubnet;
  if (sameNetwork) {
    Facts().gateway.progress = report::Progress::Ended;
    Facts().gateway.result = report::GatewayResult::NotNeeded;
  } else {
    AddMessage(Message::NotSameNetwork);
    AddMessage(Message::StartGatewayCheck);
    if (locals_.size() == 1) AddDetails(locals_.front(), address);
    if (!CheckGateway()) return false;
  }

  if (context_.pump.StopRequested()) {
    Facts().target.progress = report::Progress::Stopped;
    return false;
  }
  context_.results.AddToList(sameNetwork ? L"PING test..." : L"Target (" + address + L") PING test...");
  if (PingTarget(address, number)) return true;
  AddMessage(Message::CannotPingTarget);
  AddMessage(Message::CheckTarget);
  return false;
}

}  // namespace

bool CheckReachability(const report::CheckContext& context, const NetLibraries& libraries,
                       const std::wstring& target, int32_t count, const std::function<void()>& addToHistory) {
  return Check(context, libraries, count).Run(target, addToHistory);
}

}  // namespace tarvik
