#include "app/address_history.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/fakes/fake_settings.h"
#include "ui/memory/memory_controls.h"

namespace tarvik {
namespace {

class AddressHistoryTest : public testing::Test {
 protected:
  std::wstring Stored(const std::wstring& key) { return store.values[L"History\\" + key]; }
  void TypeAndAdd(const std::wstring& address) {
    box.SetText(address);
    AddHistoryIfNew(box);
  }

  test::FakeSettings store;
  ui::MemoryFocus focus;
  ui::MemoryComboBox box{focus};
};

TEST_F(AddressHistoryTest, A_new_address_replaces_the_oldest_of_ten) {
  for (int i = 1; i <= 10; ++i) store.values[L"History\\" + ZeroPadded(i, 2)] = L"cnc" + Decimal(i);
  LoadHistory(box, store);
  TypeAndAdd(L"new");
  SaveHistory(box, store);
  EXPECT_EQ(Stored(L"01"), L"new");
  EXPECT_EQ(Stored(L"02"), L"cnc1");
  EXPECT_EQ(Stored(L"10"), L"cnc9");
  EXPECT_EQ(store.values.size(), 10U);
}

TEST_F(AddressHistoryTest, A_known_address_does_not_change_the_order) {
  for (const wchar_t* const known : {L"a", L"b", L"c"}) box.InsertItem(box.Count(), known);
  for (const wchar_t* const known : {L"a", L"b", L"c"}) TypeAndAdd(known);
  EXPECT_EQ(box.Count(), 3);
  EXPECT_EQ(box.Item(0), L"a");
  EXPECT_EQ(box.Item(2), L"c");
}

TEST_F(AddressHistoryTest, Addresses_are_case_sensitive) {
  TypeAndAdd(L"cnc");
  TypeAndAdd(L"CNC");
  EXPECT_EQ(box.Count(), 2);
}

TEST_F(AddressHistoryTest, An_empty_address_is_never_added) {
  TypeAndAdd(L"");
  EXPECT_EQ(box.Count(), 0);
}

TEST_F(AddressHistoryTest, Adding_keeps_the_typed_text) {
  TypeAndAdd(L"typed");
  EXPECT_EQ(box.Text(), L"typed");
}

TEST_F(AddressHistoryTest, Missing_and_empty_entries_are_skipped_and_the_first_is_selected) {
  store.values[L"History\\02"] = L"second";
  store.values[L"History\\03"] = L"";
  store.values[L"History\\07"] = std::wstring(70000, L'x');
  store.values[L"History\\11"] = L"beyond";
  LoadHistory(box, store);
  ASSERT_EQ(box.Count(), 2);
  EXPECT_EQ(box.Text(), L"second");
}

TEST_F(AddressHistoryTest, An_empty_store_leaves_the_box_empty) {
  box.InsertItem(0, L"from before");
  LoadHistory(box, store);
  EXPECT_EQ(box.Count(), 0);
  EXPECT_EQ(box.Text(), L"");
}

TEST_F(AddressHistoryTest, Stored_entries_beyond_the_items_are_kept) {
  store.values[L"History\\05"] = L"kept";
  box.InsertItem(0, L"one");
  SaveHistory(box, store);
  EXPECT_EQ(Stored(L"01"), L"one");
  EXPECT_EQ(Stored(L"05"), L"kept");
}

}  // namespace
}  // namespace tarvik
