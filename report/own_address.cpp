#include "report/own_address.h"

#include <algorithm>

#include "platform/text.h"

namespace tarvik::report {

std::optional<uint32_t> AddressNumber(std::wstring_view dotted) {
  uint32_t number = 0;
  int octets = 0;
  for (size_t at = 0; at <= dotted.size(); ++octets) {
    const size_t end = std::min(dotted.find(L'.', at), dotted.size());
    const std::optional<int32_t> octet = ParseInt32(dotted.substr(at, end - at));
    if (!octet || *octet < 0 || *octet > 255 || octets == 4) return std::nullopt;
    number = number << 8 | static_cast<uint32_t>(*octet);
    at = end + 1;
  }
  if (octets != 4) return std::nullopt;
  return number;
}

bool IsOnSubnet(const OwnAddress& own, std::wstring_view target) {
  const auto address = AddressNumber(own.address);
  const auto mask = AddressNumber(own.mask);
  const auto other = AddressNumber(target);
  return address && mask && other && *mask != 0 && (*address & *mask) == (*other & *mask);
}

const OwnAddress* OwnAddressFor(const PcFacts& pc, std::wstring_view target) {
  const auto first = [&pc](const auto& fits) -> const OwnAddress* {
    const auto found = std::find_if(pc.addresses.begin(), pc.addresses.end(), fits);
    return found == pc.addresses.end() ? nullptr : &*found;
  };
  const OwnAddress* own = first([target](const OwnAddress& each) { return each.address == target; });
  if (own == nullptr) own = first([target](const OwnAddress& each) { return IsOnSubnet(each, target); });
  if (own == nullptr) own = first([](const OwnAddress& each) { return IsOnSubnet(each, each.address); });
  return own;
}

const OwnAddress* TooNarrowOwnAddress(const PcFacts& pc, std::wstring_view target) {
  constexpr uint32_t kUsualMask = 0xFFFFFF00;
  const auto wanted = AddressNumber(target);
  for (const OwnAddress& own : pc.addresses) {
    const auto address = AddressNumber(own.address);
    const auto mask = AddressNumber(own.mask);
    if (wanted && address && mask && *mask > kUsualMask && (*address & kUsualMask) == (*wanted & kUsualMask))
      return &own;
  }
  return nullptr;
}

const OwnAddress* DecisiveOwnAddress(const Facts& facts) {
  const PcFacts& pc = facts.pc;
  const GatewayFacts& gateway = facts.gateway;
  const OwnAddress* const narrow = TooNarrowOwnAddress(pc, facts.name.address);
  if (!pc.sameSubnet && narrow != nullptr) return narrow;
  const auto first = [&pc](const auto& isIt) -> const OwnAddress* {
    const auto found = std::find_if(pc.addresses.begin(), pc.addresses.end(), [&isIt](const OwnAddress& own) {
      return std::any_of(own.gateways.begin(), own.gateways.end(), isIt);
    });
    return found == pc.addresses.end() ? nullptr : &*found;
  };
  const OwnAddress* own = nullptr;
  if (!gateway.tried.empty())
    own = first([&gateway](const std::wstring& each) { return each == gateway.tried.back().address; });
  else if (gateway.result == GatewayResult::NoneUsable)
    own = first([](const std::wstring& each) { return IsRealAddress(each); });
  return own == nullptr ? OwnAddressFor(pc, facts.name.address) : own;
}

bool IsRealAddress(std::wstring_view address) { return !address.empty() && address != L"0.0.0.0"; }

bool IsThisPc(std::wstring_view host) {
  return host.empty() || host.starts_with(L"127.") || host == L"localhost";
}

int OwnAddressesOnSubnet(const PcFacts& pc, std::wstring_view target) {
  return static_cast<int>(std::count_if(pc.addresses.begin(), pc.addresses.end(),
                                        [target](const OwnAddress& own) { return IsOnSubnet(own, target); }));
}

const PcCard* CardOf(const WayToTarget& way, std::wstring_view target) {
  const auto first = [&way](const auto& fits) -> const PcCard* {
    const auto found = std::find_if(way.cards.begin(), way.cards.end(), fits);
    return found == way.cards.end() ? nullptr : &*found;
  };
  const auto fits = [target](const PcCard& card) {
    return IsOnSubnet({card.address, card.mask, {}}, target);
  };
  const PcCard* card = first([&fits](const PcCard& each) { return each.up && fits(each); });
  if (card == nullptr) card = first(fits);
  if (card == nullptr && way.card) card = &*way.card;
  const auto isReal = [](const PcCard& each) {
    return each.kind == CardKind::Cable || each.kind == CardKind::Wireless;
  };
  const bool anyUp = first([&isReal](const PcCard& each) { return each.up && isReal(each); }) != nullptr;
  if (card == nullptr && !anyUp && std::count_if(way.cards.begin(), way.cards.end(), isReal) == 1)
    card = first(isReal);
  return card;
}

}  // namespace tarvik::report
