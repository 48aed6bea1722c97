#include <cstdlib>
#include <string>
#include <vector>

#include "app/address_history.h"
#include "platform/text.h"
#include "tests/fakes/fake_settings.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_controls.h"

namespace {

std::vector<std::wstring> Items(const tarvik::ui::ComboBox& box) {
  std::vector<std::wstring> items;
  for (int i = 0; i < box.Count(); ++i) items.push_back(box.Item(i));
  return items;
}

}  // namespace

/// Any settings can be loaded, and saving the list, with a typed address added, and loading it again gives
/// the same list. Lines of the input: the typed address, then the saved ones.
TARVIK_FUZZER(app_history) {
  const std::vector<std::wstring> texts = tarvik::Split(std::wstring(data, data + size), L"\n");
  tarvik::test::FakeSettings store;
  for (size_t i = 1; i < texts.size() && i <= 12; ++i)
    store.values[L"History\\" + tarvik::ZeroPadded(static_cast<int64_t>(i), 2)] = texts[i];

  tarvik::ui::MemoryFocus focus;
  tarvik::ui::MemoryComboBox box{focus};
  tarvik::LoadHistory(box, store);
  if (box.Count() > 10) std::abort();
  box.SetText(texts[0]);
  tarvik::AddHistoryIfNew(box);
  std::vector<std::wstring> expected = Items(box);
  if (expected.size() > 10) expected.resize(10);

  store.values.clear();
  tarvik::SaveHistory(box, store);
  tarvik::LoadHistory(box, store);
  if (Items(box) != expected) std::abort();
}
