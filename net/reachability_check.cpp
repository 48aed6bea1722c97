#include "net/reachability_check.h"

#include <optional>
#include <vector>

#include "net/local_configuration.h"
#include "net/ping_host.h"
#include "net/tcp_ip_host.h"
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
  bool Ping(const std::wstring& address);
  void AddDetails(const LocalAddressRecord& local, const std::wstring& address);
  GatewaySearch SearchGateway();
  bool CheckGateway();

  const report::CheckContext& context_;
  const NetLibraries& libraries_;
  const int32_t count_;
  std::vector<LocalAddressRecord> locals_;
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
  if (TcpIpHost::IsIpAddr(target)) return target;
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
  if (!context_.pump.StopRequested()) AddMessage(Message::NoConfiguration);
  return false;
}

bool Check::Ping(const std::wstring& address) { return PingHost(context_, libraries_, address, count_); }

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
      if (context_.pump.StopRequested())
        return result == GatewaySearch::NoneAnswered ? result : GatewaySearch::Stopped;
      context_.results.AddToList(L"GateWay (" + gateway + L") PING test ....");
      if (Ping(gateway)) return GatewaySearch::Answered;
      result = GatewaySearch::NoneAnswered;
    }
  }
  return result;
}

bool Check::CheckGateway() {
  switch (SearchGateway()) {
    case GatewaySearch::Answered:
      return true;
    case GatewaySearch::NoneConfigured:
      AddMessage(Message::NoGateway);
      break;
    case GatewaySearch::NoneUsable:
      AddMessage(Message::SubnetMismatch);
      AddMessage(Message::CannotAccessGateway);
      break;
    case GatewaySearch::NoneAnswered:
      AddMessage(Message::CannotPingGateway);
      AddMessage(Message::CheckGateway);
      break;
    case GatewaySearch::Stopped:
      break;
  }
  return false;
}

bool Check::Run(const std::wstring& target, const std::function<void()>& addToHistory) {
  TcpIpHost host(libraries_.winsock, libraries_.codePage, context_.boxes);
  const std::wstring address = Resolve(host, target);
  if (address.empty()) return false;
  addToHistory();

  if (!ReadConfiguration()) return false;
  const uint32_t targetAddress = ToAddress(address);
  bool maskSeen = false;
  bool sameNetwork = false;
  for (const LocalAddressRecord& local : locals_) {
    if (ToAddress(local.SubnetMask) == 0) continue;
    maskSeen = true;
    if (SameSubnet(local, targetAddress)) sameNetwork = true;
  }
  if (!maskSeen) {
    AddMessage(Message::NoSubnetMask);
    return false;
  }

  if (!sameNetwork) {
    AddMessage(Message::NotSameNetwork);
    AddMessage(Message::StartGatewayCheck);
    if (locals_.size() == 1) AddDetails(locals_.front(), address);
    if (!CheckGateway()) return false;
  }

  if (context_.pump.StopRequested()) return false;
  context_.results.AddToList(sameNetwork ? L"PING test..." : L"Target (" + address + L") PING test...");
  if (Ping(address)) return true;
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
