#include "net/way_to_target.h"

#include <optional>
#include <vector>

#include "net/adapter_list.h"

namespace tarvik {
namespace {

/// The first address of the card on the target's subnet; null when it has none.
const AdapterAddress* AddressOnSubnet(const Adapter& adapter, uint32_t target) {
  for (const AdapterAddress& own : adapter.addresses)
    if (own.mask != 0 && (own.address & own.mask) == (target & own.mask)) return &own;
  return nullptr;
}

}  // namespace

report::WayToTarget FindWayToTarget(IpHelper& ipHelper, uint32_t targetAddress) {
  report::WayToTarget way;
  uint32_t index = 0;
  const bool answered = ipHelper.GetBestInterface(targetAddress, &index) == IpHelper::kSuccess;
  bool cardFits = false;
  int fittingCards = 0;
  std::optional<report::PcCard> unplugged;
  for (Adapter& adapter : ReadAdapters(ipHelper)) {
    report::PcCard& card = adapter.card;
    const AdapterAddress* const own = AddressOnSubnet(adapter, targetAddress);
    if (own != nullptr) {
      NameAddress(card, *own);
      if (card.up) ++fittingCards;
      if (!card.up && !unplugged) unplugged = card;
    }
    if (answered && card.index == index) {
      way.card = card;
      cardFits = own != nullptr;
    }
    way.cards.push_back(std::move(card));
  }
  if (!cardFits && unplugged) way.card = unplugged;
  way.severalCardsFit = fittingCards > 1;
  return way;
}

}  // namespace tarvik
