// Cables are veth pairs: one end is the host's card, the other a port of a bridge in the switch's namespace.
// Pulling a cable sets the port down, so that the host loses its carrier as with a real cable.

#include "lab/network/laboratory.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "lab/host/leftovers.h"
#include "lab/host/own_network.h"

namespace tarvik::lab {
namespace {

constexpr Host kHosts[] = {Host::Pc, Host::Gateway, Host::Near, Host::Far};

// The bridges: one for each subnet.
constexpr char kNearBridge[] = "pcside";
constexpr char kFarBridge[] = "farside";
constexpr char kSecondPcPort[] = "pc2";

/// A host of a new network.
struct HostPlan {
  const char* port;  ///< name of the cable's end in the switch
  const char* bridge;
  const char* address;
  const char* gateway;
};

HostPlan PlanOf(Host host) {
  switch (host) {
    case Host::Pc:
      return {"pc", kNearBridge, "192.168.1.10/24", kGatewayAddress};
    case Host::Gateway:
      return {"gateway", kNearBridge, "192.168.1.1/24", ""};
    case Host::Near:
      return {"near", kNearBridge, "192.168.1.100/24", kGatewayAddress};
    case Host::Far:
      break;
  }
  return {"far", kFarBridge, "192.168.2.100/24", "192.168.2.1"};
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream stream(path, std::ios::trunc);
  stream << text;
  if (!stream.flush()) throw LabError("Cannot write " + path);
}

std::string ConfigurationFolder(const std::string& name) { return "/etc/netns/" + name; }

// The kernel handles one network change at a time; removing other namespaces may hold it up for long.
constexpr std::chrono::seconds kIpTimeOut(120);

void IpIn(const std::string& name, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"ip", "-n", name});
  RunOrThrow(arguments, {}, {}, kIpTimeOut);
}

/// One command a line, for IPv4.
void IpBatchIn(const std::string& name, const std::string& commands) {
  RunOrThrow({"ip", "-4", "-n", name, "-batch", "-"}, {}, commands, kIpTimeOut);
}

}  // namespace

std::optional<std::string> Laboratory::UnsupportedReason() {
  if (!IsRoot()) return "only root can create network namespaces";
  const std::string name = UniqueName() + "-probe";
  try {
    const Finished made = Run({"ip", "netns", "add", name});
    if (made.exitCode != 0) return "cannot create a network namespace: " + made.output;
    const Finished cable =
        Run({"ip", "-n", name, "link", "add", "cable1", "type", "veth", "peer", "name", "cable2"});
    const Finished bridge = Run({"ip", "-n", name, "link", "add", "switch1", "type", "bridge"});
    Run({"ip", "netns", "del", name});
    if (cable.exitCode != 0) return "this kernel has no veth devices: " + cable.output;
    if (bridge.exitCode != 0) return "this kernel has no bridge devices: " + bridge.output;
  } catch (const LabError& error) {
    return error.what();
  }
  return std::nullopt;
}

Laboratory::Laboratory(const std::string& cacheFolder) : forwarding_(std::begin(kHosts), std::end(kHosts)) {
  RemoveLeftoversWhenThisProcessEnds(std::filesystem::absolute(cacheFolder));
  const std::string stem = UniqueName();
  try {
    switch_ = stem + "-switch";
    AddNamespace(switch_);
    for (const char* bridge : {kNearBridge, kFarBridge}) {
      IpIn(switch_, {"link", "add", bridge, "type", "bridge"});
      IpIn(switch_, {"link", "set", bridge, "up"});
    }
    for (const Host host : kHosts) {
      const HostPlan plan = PlanOf(host);
      names_[host] = stem + "-" + plan.port;
      AddNamespace(names_[host]);
      PlugIn(plan.port, names_[host], "eth0", plan.bridge);
    }
    PlugIn("gateway2", names_[Host::Gateway], "eth1", kFarBridge);
    IpIn(names_[Host::Gateway], {"address", "add", "192.168.2.1/24", "dev", "eth1"});
    Reset();
  } catch (...) {
    Remove();
    throw;
  }
}

Laboratory::~Laboratory() { Remove(); }

void Laboratory::Remove() {
  for (const std::string& name : namespaces_) {
    try {
      Run({"ip", "netns", "del", name});
      std::filesystem::remove_all(ConfigurationFolder(name));
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
  }
  namespaces_.clear();
}

void Laboratory::AddNamespace(const std::string& name) {
  // "ip netns exec" mounts these files over those in /etc. With no name server an unknown name fails at once.
  std::filesystem::create_directories(ConfigurationFolder(name));
  namespaces_.push_back(name);
  WriteFile(ConfigurationFolder(name) + "/hosts", "127.0.0.1 localhost\n");
  WriteFile(ConfigurationFolder(name) + "/nsswitch.conf", "hosts: files\n");
  WriteFile(ConfigurationFolder(name) + "/resolv.conf", "");
  RunOrThrow({"ip", "netns", "add", name});
  IpIn(name, {"link", "set", "lo", "up"});
}

void Laboratory::PlugIn(const std::string& port, const std::string& name, const std::string& card,
                        const std::string& bridge) const {
  IpIn(switch_, {"link", "add", port, "type", "veth", "peer", "name", card, "netns", name});
  IpIn(switch_, {"link", "set", port, "master", bridge, "up"});
  IpIn(name, {"link", "set", card, "up"});
}

void Laboratory::Ip(Host host, const std::vector<std::string>& arguments) const {
  IpIn(Namespace(host), arguments);
}

void Laboratory::SetCable(Host host, bool plugged) const {
  IpIn(switch_, {"link", "set", PlanOf(host).port, plugged ? "up" : "down"});
}

void Laboratory::SetAddresses(Host host, const std::vector<std::string>& addresses) const {
  Ip(host, {"-4", "address", "flush", "dev", "eth0"});
  for (const std::string& address : addresses) Ip(host, {"address", "add", address, "dev", "eth0"});
}

void Laboratory::SetDefaultRoute(Host host, const std::string& gateway) const {
  // May fail: usually there is no default route yet.
  Run({"ip", "-n", Namespace(host), "route", "del", "default"});
  if (!gateway.empty()) Ip(host, {"route", "add", "default", "via", gateway, "dev", "eth0", "onlink"});
}

std::string Laboratory::InitialGateway(Host host) { return PlanOf(host).gateway; }

void Laboratory::SetForwarding(Host host, bool forwards) const {
  forwarding_.insert(host);
  // Without redirects: Wine takes an ICMP redirect for the reply to an echo.
  RunOrThrow(InNamespace(Namespace(host),
                         {"sh", "-c",
                          std::string("cd /proc/sys/net/ipv4 && echo ") + (forwards ? "1" : "0") +
                              " >ip_forward && for card in conf/*/send_redirects; do echo 0 >$card; done"}));
}

void Laboratory::SetLineSpeed(Host host, const std::string& rate, size_t burstBytes) const {
  slowed_.insert(host);
  RunOrThrow({"tc", "-n", Namespace(host), "qdisc", "replace", "dev", "eth0", "root", "tbf", "rate", rate,
              "burst", std::to_string(burstBytes), "latency", "60s"});
}

void Laboratory::AddCardToPc(const std::string& address) const {
  hasSecondPcCard_ = true;
  PlugIn(kSecondPcPort, Namespace(Host::Pc), "eth1", kNearBridge);
  Ip(Host::Pc, {"address", "add", address, "dev", "eth1"});
}

void Laboratory::SetHostNames(
    Host host, const std::vector<std::pair<std::string, std::string>>& namesAndAddresses) const {
  std::string text = "127.0.0.1 localhost\n";
  for (const auto& [name, address] : namesAndAddresses)
    text.append(address).append(" ").append(name).append("\n");
  WriteFile(ConfigurationFolder(Namespace(host)) + "/hosts", text);
}

void Laboratory::SetFilter(Host host, const std::string& ruleset) const {
  filtered_.insert(host);
  RunOrThrow(InNamespace(Namespace(host), {"nft", "-f", "-"}), {}, "flush ruleset\n" + ruleset + "\n");
}

void Laboratory::Reset() const {
  for (const Host host : filtered_) RunOrThrow(InNamespace(Namespace(host), {"nft", "flush", "ruleset"}));
  filtered_.clear();
  // These two fail when setting them up has failed.
  for (const Host host : slowed_) Run({"tc", "-n", Namespace(host), "qdisc", "del", "dev", "eth0", "root"});
  slowed_.clear();
  if (hasSecondPcCard_) Run({"ip", "-n", switch_, "link", "del", kSecondPcPort});
  hasSecondPcCard_ = false;
  for (const Host host : forwarding_) SetForwarding(host, host == Host::Gateway);
  forwarding_.clear();
  std::string cables;
  for (const Host host : kHosts) cables += std::string("link set ") + PlanOf(host).port + " up\n";
  IpBatchIn(switch_, cables);
  for (const Host host : kHosts) {
    const HostPlan plan = PlanOf(host);
    std::string commands = std::string("address flush dev eth0\nroute flush exact default\naddress add ") +
                           plan.address + " dev eth0\n";
    if (*plan.gateway != '\0')
      commands += std::string("route add default via ") + plan.gateway + " dev eth0 onlink\n";
    // Failed ARP entries would outlive the fault.
    IpBatchIn(Namespace(host), commands + "neighbour flush all\n");
    SetHostNames(host, {});
  }
}

}  // namespace tarvik::lab
