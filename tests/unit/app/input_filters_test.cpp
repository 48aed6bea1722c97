#include "app/input_filters.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "ui/memory/memory_controls.h"

namespace tarvik {
namespace {

class InputFiltersTest : public testing::Test {
 protected:
  bool NumberBoxAccepts(wchar_t key, int16_t maxBytes = 8) {
    auto code = static_cast<int16_t>(key);
    KeyPress_NumRange(code, text, maxBytes, codePage);
    return code != 0;
  }
  bool AddressBoxAccepts(wchar_t key) {
    auto code = static_cast<int16_t>(key);
    KeyPress_HostRange(code, combo, codePage);
    return code != 0;
  }

  test::FakeCodePage codePage;
  ui::MemoryFocus focus;
  ui::MemoryTextBox text{focus};
  ui::MemoryComboBox combo{focus};
};

TEST_F(InputFiltersTest, A_full_number_field_rejects_digits_and_accepts_backspace) {
  text.SetText(L"12345678");
  EXPECT_FALSE(NumberBoxAccepts(L'9'));
  EXPECT_TRUE(NumberBoxAccepts(8));
  text.SetText(L"1234567");
  EXPECT_TRUE(NumberBoxAccepts(L'9'));
}

TEST_F(InputFiltersTest, A_full_number_field_rejects_a_digit_even_with_a_selection) {
  text.SetText(L"12345678");
  text.SetSelection(0, 8);
  EXPECT_FALSE(NumberBoxAccepts(L'1'));
}

TEST_F(InputFiltersTest, A_number_field_accepts_only_digits) {
  for (const wchar_t key : std::wstring(L"0123456789")) EXPECT_TRUE(NumberBoxAccepts(key));
  for (const wchar_t key : std::wstring(L"-+. aA/:\x3042\xFF11")) EXPECT_FALSE(NumberBoxAccepts(key));
}

TEST_F(InputFiltersTest, The_length_limit_counts_bytes_of_the_code_page) {
  text.SetText(L"\x3042\x3044\x3046\x3048");  // four letters, eight bytes
  EXPECT_FALSE(NumberBoxAccepts(L'1'));
  text.SetText(L"\x3042\x3044\x3046");
  EXPECT_TRUE(NumberBoxAccepts(L'1'));
}

TEST_F(InputFiltersTest, A_field_with_no_room_accepts_only_backspace) {
  EXPECT_FALSE(NumberBoxAccepts(L'1', 0));
  EXPECT_FALSE(NumberBoxAccepts(L'1', -1));
  EXPECT_TRUE(NumberBoxAccepts(8, 0));
}

TEST_F(InputFiltersTest, The_address_box_accepts_letters_digits_period_and_hyphen) {
  for (const wchar_t key : std::wstring(L"AZaz09.-")) EXPECT_TRUE(AddressBoxAccepts(key));
  EXPECT_TRUE(AddressBoxAccepts(8));
}

TEST_F(InputFiltersTest, The_address_box_rejects_all_other_characters) {
  for (const wchar_t key : std::wstring(L"_ :@[`{/;\x00E4\x3042\xFF21\xFF0E"))
    EXPECT_FALSE(AddressBoxAccepts(key));
}

TEST_F(InputFiltersTest, The_address_box_is_full_at_63_bytes) {
  combo.SetText(std::wstring(62, L'a'));
  EXPECT_TRUE(AddressBoxAccepts(L'a'));
  combo.SetText(std::wstring(63, L'a'));
  EXPECT_FALSE(AddressBoxAccepts(L'a'));
  EXPECT_TRUE(AddressBoxAccepts(8));
}

TEST_F(InputFiltersTest, Selecting_all_covers_the_whole_text) {
  text.SetText(L"8193");
  TextBoxSellAll(text);
  EXPECT_EQ(text.selectionStart, 0);
  EXPECT_EQ(text.selectionLength, 4);
}

}  // namespace
}  // namespace tarvik
