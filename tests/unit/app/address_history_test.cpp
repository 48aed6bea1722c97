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
  void Test(const std::wstring& address) {
    box.SetText(address);
    AddHistoryIfNew(box);
  }

  test::FakeSettings store;
  ui::MemoryFocus focus;
  ui::MemoryComboBox box{focus};
};

TEST_F(AddressHistoryTest, A_new_address_pushes_the_oldest_of_ten_out) {
  for (int i = 1; i <= 10; ++i) store.values[L"History\\" + ZeroPadded(i, 2)] = L"cnc" + Decimal(i);
  LoadHistory(box, store);
  Test(L"new");
  SaveHistory(box, store);
  EXPECT_EQ(Stored(L"01"), L"new");
  EXPECT_EQ(Stored(L"02"), L"cnc1");
  EXPECT_EQ(Stored(L"10"), L"cnc9");
  EXPECT_EQ(store.values.size(), 10U);
}

TEST_F(AddressHistoryTest, A_known_address_in_any_position_leaves_the_order) {
  for (const wchar_t* const known : {L"a", L"b", L"c"}) box.InsertItem(box.Count(), known);
  for (const wchar_t* const known : {L"a", L"b", L"c"}) Test(known);
  EXPECT_EQ(box.Count(), 3);
  EXPECT_EQ(box.Item(0), L"a");
  EXPECT_EQ(box.Item(2), L"c");
}

TEST_F(AddressHistoryTest, Letter_case_makes_another_address) {
  Test(L"cnc");
  Test(L"CNC");
  EXPECT_EQ(box.Count(), 2);
}

TEST_F(AddressHistoryTest, An_empty_address_is_never_added) {
  Test(L"");
  EXPECT_EQ(box.Count(), 0);
}

TEST_F(AddressHistoryTest, Adding_keeps_the_typed_text) {
  Test(L"typed");
  EXPECT_EQ(box.Text(), L"typed");
}

TEST_F(AddressHistoryTest, Missing_empty_and_odd_entries_are_left_out_and_the_first_is_current) {
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

TEST_F(AddressHistoryTest, Keys_beyond_the_items_stay_as_they_are) {
  store.values[L"History\\05"] = L"kept";
  box.InsertItem(0, L"one");
  SaveHistory(box, store);
  EXPECT_EQ(Stored(L"01"), L"one");
  EXPECT_EQ(Stored(L"05"), L"kept");
}

}  // namespace
}  // namespace tarvik
