#include "net/neighbour.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "platform/scope_guard.h"

namespace tarvik {
namespace {

/// Windows keeps a few hundred rows at most. The table does not contain its size in bytes, so the number of
/// rows can only be checked against a limit.
constexpr uint32_t kMaxRows = 65536;

bool PhysicalAddressKnown(const MibIpNetRow2& row) {
  const size_t length = std::min<size_t>(row.PhysicalAddressLength, std::size(row.PhysicalAddress));
  return std::any_of(row.PhysicalAddress, row.PhysicalAddress + length,
                     [](uint8_t octet) { return octet != 0; });
}

report::Neighbour AnswerOfRow(const MibIpNetRow2& row) {
  if (row.State == MibIpNetRow2::kPermanent) return report::Neighbour::Unknown;
  if (row.State == MibIpNetRow2::kUnreachable || !PhysicalAddressKnown(row)) return report::Neighbour::Absent;
  return row.State == MibIpNetRow2::kReachable ? report::Neighbour::Present : report::Neighbour::Unknown;
}

}  // namespace

report::Neighbour LookForNeighbour(IpHelper& ipHelper, uint32_t address) {
  const MibIpNetTable2* table = nullptr;
  if (ipHelper.GetIpNetTable2(IpHelper::kFamilyInternet, &table) != IpHelper::kSuccess || table == nullptr)
    return report::Neighbour::Unknown;
  const ScopeGuard free([&] { ipHelper.FreeMibTable(table); });
  // With two cards on the subnet the address has two rows: one answer is enough, and so is one open question.
  bool absent = false;
  bool unknown = false;
  const MibIpNetRow2* const rows = table->Table;
  for (uint32_t i = 0; i < std::min(table->NumEntries, kMaxRows); ++i) {
    const MibIpNetRow2& row = rows[i];
    if (row.Family != IpHelper::kFamilyInternet || row.Address != address) continue;
    const report::Neighbour answer = AnswerOfRow(row);
    if (answer == report::Neighbour::Present) return answer;
    (answer == report::Neighbour::Absent ? absent : unknown) = true;
  }
  return absent && !unknown ? report::Neighbour::Absent : report::Neighbour::Unknown;
}

report::Neighbour Between(report::Neighbour before, report::Neighbour after) {
  // An answer from before the first echo says nothing about a cable that has been pulled since.
  const bool old = before == report::Neighbour::Present && after == report::Neighbour::Present;
  return old ? report::Neighbour::Unknown : after;
}

}  // namespace tarvik
