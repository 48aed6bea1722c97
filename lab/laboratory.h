#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lab/process.h"

namespace tarvik::lab {

/// The hosts of the laboratory.
enum class Host {
  Pc,       ///< 192.168.1.10/24, default gateway 192.168.1.1
  Gateway,  ///< 192.168.1.1 and 192.168.2.1, forwards between the two
  Near,     ///< a controller on the PC's own subnet, 192.168.1.100
  Far,      ///< a controller behind the gateway, 192.168.2.100
};

inline constexpr char kPcAddress[] = "192.168.1.10";
inline constexpr char kGatewayAddress[] = "192.168.1.1";
inline constexpr char kNearAddress[] = "192.168.1.100";
inline constexpr char kFarAddress[] = "192.168.2.100";

/// A small real network: every host a network namespace, its cables plugged into a switch that is one
/// too. Nothing of it touches the machine's own network, and its end removes all of it. Every method
/// throws LabError when the system refuses.
class Laboratory {
 public:
  /// Why this machine cannot lay a laboratory; nothing when it can.
  static std::optional<std::string> UnsupportedReason();

  /// `cacheFolder`: see RemoveLeftoversWhenThisProcessEnds.
  explicit Laboratory(const std::string& cacheFolder);
  Laboratory(const Laboratory&) = delete;
  Laboratory& operator=(const Laboratory&) = delete;
  ~Laboratory();

  /// The name of the host's network namespace.
  const std::string& Namespace(Host host) const { return names_.at(host); }

  /// Runs `ip` with the arguments inside the host.
  void Ip(Host host, const std::vector<std::string>& arguments) const;

  /// The cable between the host's card "eth0" and the switch. Its gateway's other card is "eth1".
  void PullCable(Host host) const { SetCable(host, false); }
  void PlugCable(Host host) const { SetCable(host, true); }

  /// Replaces the addresses of "eth0", such as {"192.168.1.10/24"}. The routes that hang on them go.
  void SetAddresses(Host host, const std::vector<std::string>& addresses) const;

  /// Replaces the default route; an empty gateway leaves the host without one. The gateway may lie outside
  /// the host's subnets.
  void SetDefaultRoute(Host host, const std::string& gateway) const;

  /// The default gateway that the host was laid with; empty when it has none.
  static std::string InitialGateway(Host host);

  /// Whether the host passes on what is not for itself, as a router does. The gateway does.
  void SetForwarding(Host host, bool forwards) const;

  /// Makes the host's card "eth0" send no faster than this, such as "400bit" a second. So many bytes pass at
  /// once when it has been silent for long.
  void SetLineSpeed(Host host, const std::string& rate, size_t bytesAtOnce) const;

  /// Puts a second card "eth1" with the address (such as "10.0.0.10/24") into the PC; its cable ends in the
  /// same switch as the first one's.
  void AddCardToPc(const std::string& address) const;

  /// The names that the host can resolve, each with one address; no others are known to it. Programs that
  /// run already see them too.
  void SetHostNames(Host host,
                    const std::vector<std::pair<std::string, std::string>>& namesAndAddresses) const;

  /// Replaces the host's packet filter by an nftables ruleset; an empty text lets everything pass.
  void SetFilter(Host host, const std::string& ruleset) const;

  /// Puts everything back to how it was laid.
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
};

}  // namespace tarvik::lab
