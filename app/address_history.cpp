#include "app/address_history.h"

#include "platform/text.h"

namespace tarvik {
namespace {

constexpr wchar_t kSection[] = L"History";
constexpr int kMostStored = 10;

std::wstring KeyOf(int index) { return ZeroPadded(index + 1, 2); }

}  // namespace

void LoadHistory(ui::ComboBox& box, SettingsStore& store) {
  box.Clear();
  for (int i = 0; i < kMostStored; ++i) {
    const std::wstring address = store.Read(kSection, KeyOf(i)).value_or(std::wstring());
    if (!address.empty()) box.InsertItem(box.Count(), address);
  }
  if (box.Count() > 0) box.Select(0);
}

void SaveHistory(const ui::ComboBox& box, SettingsStore& store) {
  for (int i = 0; i < box.Count() && i < kMostStored; ++i) store.Write(kSection, KeyOf(i), box.Item(i));
}

void AddHistoryIfNew(ui::ComboBox& box) {
  const std::wstring address = box.Text();
  // The item behind the last one reads as empty text, which is how an empty box is never added.
  for (int i = 0; i <= box.Count(); ++i)
    if (box.Item(i) == address) return;
  box.InsertItem(0, address);
}

}  // namespace tarvik
