#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lab/host/process.h"

namespace tarvik::lab {

/// The hosts of the laboratory.
enum class Host {
  Pc,       ///< 192.168.1.10/24, default gateway 192.168.1.1
  Gateway,  ///< 192.168.1.1 and 192.168.2.1; forwards between the two subnets
  Near,     ///< a controller on the PC's own subnet, 192.168.1.100
  Far,      ///< a controller beyond the gateway, 192.168.2.100
};

inline constexpr char kPcAddress[] = "192.168.1.10";
inline constexpr char kGatewayAddress[] = "192.168.1.1";
inline constexpr char kNearAddress[] = "192.168.1.100";
inline constexpr char kFarAddress[] = "192.168.2.100";

/// A small real network, isolated from the machine's own. Each host is a network namespace whose virtual
/// cable is plugged into a switch, one more namespace with two bridges. Destruction removes everything.
/// Methods throw LabError when a system command fails.
class Laboratory {
 public:
  /// Why this machine cannot create the network (it takes root, veth and bridges); nothing when it can.
  static std::optional<std::string> UnsupportedReason();

  /// Creates the network. `cacheFolder`: see RemoveLeftoversWhenThisProcessEnds.
  explicit Laboratory(const std::string& cacheFolder);
  Laboratory(const Laboratory&) = delete;
  Laboratory& operator=(const Laboratory&) = delete;
  ~Laboratory();

  /// The name of the host's network namespace.
  const std::string& Namespace(Host host) const { return names_.at(host); }

  /// Runs `ip` with these arguments in the host's namespace.
  void Ip(Host host, const std::vector<std::string>& arguments) const;

  /// The cable between the host's card "eth0" and the switch. The gateway's card "eth1" always stays
  /// connected.
  void PullCable(Host host) const { SetCable(host, false); }
  void PlugCable(Host host) const { SetCable(host, true); }

  /// Replaces the addresses of "eth0", such as {"192.168.1.10/24"}. Routes through them are lost, the default
  /// route included.
  void SetAddresses(Host host, const std::vector<std::string>& addresses) const;

  /// Replaces the default route. An empty gateway only removes it; one outside the host's subnets is
  /// accepted.
  void SetDefaultRoute(Host host, const std::string& gateway) const;

  /// The host's default gateway in a new or reset network; empty when it has none.
  static std::string InitialGateway(Host host);

  /// Switches IP forwarding. It is on for the gateway only.
  void SetForwarding(Host host, bool forwards) const;

  /// Limits what "eth0" sends to `rate` (tc notation, such as "400bit" per second), with bursts of up to
  /// `burstBytes` after a pause.
  void SetLineSpeed(Host host, const std::string& rate, size_t burstBytes) const;

  /// Adds a second card "eth1" to the PC, with an address such as "10.0.0.10/24". It is on the same Ethernet
  /// segment as the first one.
  void AddCardToPc(const std::string& address) const;

  /// Sets the names that the host can resolve, besides "localhost". Running programs see the change too.
  void SetHostNames(Host host,
                    const std::vector<std::pair<std::string, std::string>>& namesAndAddresses) const;

  /// Replaces the host's nftables ruleset; an empty one lets everything pass.
  void SetFilter(Host host, const std::string& ruleset) const;

  /// Restores the initial state of every host.
  void Reset() const;

 private:
  void AddNamespace(const std::string& name);
  void PlugIn(const std::string& port, const std::string& name, const std::string& card,
              const std::string& bridge) const;
  void SetCable(Host host, bool plugged) const;
  void Remove();

  std::map<Host, std::string> names_;
  std::string switch_;
  std::vector<std::string> namespaces_;
  // What Reset has to undo. In a new network it sets the forwarding of every host.
  mutable std::set<Host> filtered_;
  mutable std::set<Host> slowed_;
  mutable std::set<Host> forwarding_;
  mutable bool hasSecondPcCard_ = false;
};

}  // namespace tarvik::lab
