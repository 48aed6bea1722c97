#include "net/ipconfig_text.h"

#include <algorithm>

#include "platform/text.h"

namespace tarvik {
namespace {

/// Builds the records line by line.
class Records {
 public:
  void StartRecord(const std::wstring& address) {
    const bool counts = !address.empty() && address != kLoopback;
    // A record without a mask is incomplete: the next one replaces it.
    if (maskExpected_ && counts) list_.pop_back();
    maskExpected_ = counts;
    if (!maskExpected_) return;
    list_.push_back({address, {}, {}});
    blockStart_ = std::min(blockStart_, list_.size() - 1);
  }

  void SetMask(const std::wstring& mask) {
    if (!maskExpected_) return;
    list_.back().SubnetMask = mask;
    maskExpected_ = false;
  }

  void EndBlock(const std::wstring& gateway) {
    if (!gateway.empty())
      for (size_t i = blockStart_; i < list_.size(); ++i) list_[i].Gateways.push_back(gateway);
    // An adapter without a gateway has an empty gateway line, so the line always ends the adapter.
    blockStart_ = list_.size();
  }

  std::vector<LocalAddressRecord> Take() { return std::move(list_); }

 private:
  std::vector<LocalAddressRecord> list_;
  bool maskExpected_ = false;  ///< the last record has no mask yet
  size_t blockStart_ = 0;      ///< first record after the latest gateway line
};

}  // namespace

bool GetValueAfterColon(std::wstring_view line, std::wstring_view key, std::wstring& value) {
  value.clear();
  const size_t colon = line.find(L':');
  if (colon == std::wstring_view::npos || line.find(key) == std::wstring_view::npos) return false;
  value = TrimSpaces(line.substr(colon + 1));
  return true;
}

std::vector<LocalAddressRecord> ParseIpconfigText(std::string_view text) {
  Records records;
  while (!text.empty()) {
    // Redirected, ipconfig ends its lines with CR CR LF, so each of these characters ends a line.
    const size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::wstring line = WidenAscii(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    std::wstring value;
    if (GetValueAfterColon(line, L"IP Address", value)) {
      records.StartRecord(value);
    } else if (GetValueAfterColon(line, L"Subnet Mask", value)) {
      records.SetMask(value);
    } else if (GetValueAfterColon(line, L"Default Gateway", value)) {
      records.EndBlock(value);
    }
  }
  return records.Take();
}

}  // namespace tarvik
