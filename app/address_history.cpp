#include "app/address_history.h"

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr wchar_t kSection[] = L"History";
constexpr int kMaxStoredAddresses = 10;

std::wstring KeyOf(int index) { return ZeroPadded(index + 1, 2); }

}  // namespace

void LoadHistory(ui::ComboBox& box, SettingsStore& store) {
  box.Clear();
  for (int i = 0; i < kMaxStoredAddresses; ++i) {
    const std::wstring address = store.Read(kSection, KeyOf(i)).value_or(std::wstring());
    if (!address.empty()) box.InsertItem(box.Count(), address);
  }
  if (box.Count() > 0) box.Select(0);
}

void SaveHistory(const ui::ComboBox& box, SettingsStore& store) {
  for (int i = 0; i < box.Count() && i < kMaxStoredAddresses; ++i)
    store.Write(kSection, KeyOf(i), box.Item(i));
}

void AddHistoryIfNew(ui::ComboBox& box) {
  const std::wstring address = box.Text();
  // "<=" on purpose: the item after the last reads as empty text, so an empty address is never added.
  for (int i = 0; i <= box.Count(); ++i)
    if (box.Item(i) == address) return;
  box.InsertItem(0, address);
}

}  // namespace tarvik
