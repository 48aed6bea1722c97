#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvik::report {

enum class CardKind { Cable, Wireless, Virtual, Other };

/// A network card of the PC. The texts are as Windows reports them; addresses are dotted.
struct PcCard {
  std::wstring name;         ///< "Ethernet 2"
  std::wstring description;  ///< the maker's name of the card
  std::wstring address;      ///< first IPv4 address; empty = none
  std::wstring mask;
  std::vector<std::wstring> gateways;
  CardKind kind = CardKind::Other;
  uint32_t index = 0;  ///< interface index
  bool up = false;     ///< the link is up: a cable is in and the other end is on
};

/// Which card Windows uses for the target.
struct WayToTarget {
  std::optional<PcCard> card;    ///< nothing when Windows cannot say
  bool severalCardsFit = false;  ///< more than one card is on the target's subnet
  std::vector<PcCard> cards;     ///< every card of the PC
};

/// Whether a device on the PC's own subnet has the address, according to the neighbour table.
enum class Neighbour { Unknown, Present, Absent };

/// How one attempt to open a TCP connection ended.
enum class PortAnswer { Unknown, Open, Refused, Silent };

}  // namespace tarvik::report
