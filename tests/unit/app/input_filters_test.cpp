#include "app/input_filters.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "ui/memory/memory_controls.h"

namespace tarvik {
namespace {

class InputFiltersTest : public testing::Test {
 protected:
  bool NumberTakes(wchar_t key, int16_t most = 8) {
    auto code = static_cast<int16_t>(key);
    KeyPress_NumRange(code, text, most, codePage);
    return code != 0;
  }
  bool HostTakes(wchar_t key) {
    auto code = static_cast<int16_t>(key);
    KeyPress_HostRange(code, combo, codePage);
    return code != 0;
  }

  test::FakeCodePage codePage;
  ui::MemoryFocus focus;
  ui::MemoryTextBox text{focus};
  ui::MemoryComboBox combo{focus};
};

TEST_F(InputFiltersTest, A_full_number_field_refuses_a_digit_and_takes_backspace) {
  text.SetText(L"12345678");
  EXPECT_FALSE(NumberTakes(L'9'));
  EXPECT_TRUE(NumberTakes(8));
  text.SetText(L"1234567");
  EXPECT_TRUE(NumberTakes(L'9'));
}

TEST_F(InputFiltersTest, A_full_number_field_refuses_a_digit_also_over_a_selection) {
  text.SetText(L"12345678");
  text.SetSelection(0, 8);
  EXPECT_FALSE(NumberTakes(L'1'));
}

TEST_F(InputFiltersTest, A_number_field_takes_digits_only) {
  for (const wchar_t key : std::wstring(L"0123456789")) EXPECT_TRUE(NumberTakes(key));
  for (const wchar_t key : std::wstring(L"-+. aA/:\x3042\xFF11")) EXPECT_FALSE(NumberTakes(key));
}

TEST_F(InputFiltersTest, The_length_of_a_field_counts_bytes_of_the_code_page) {
  text.SetText(L"\x3042\x3044\x3046\x3048");  // four letters, eight bytes
  EXPECT_FALSE(NumberTakes(L'1'));
  text.SetText(L"\x3042\x3044\x3046");
  EXPECT_TRUE(NumberTakes(L'1'));
}

TEST_F(InputFiltersTest, A_field_of_no_length_takes_nothing_but_backspace) {
  EXPECT_FALSE(NumberTakes(L'1', 0));
  EXPECT_FALSE(NumberTakes(L'1', -1));
  EXPECT_TRUE(NumberTakes(8, 0));
}

TEST_F(InputFiltersTest, The_address_box_takes_letters_digits_point_and_hyphen) {
  for (const wchar_t key : std::wstring(L"AZaz09.-")) EXPECT_TRUE(HostTakes(key));
  EXPECT_TRUE(HostTakes(8));
}

TEST_F(InputFiltersTest, The_address_box_refuses_everything_else) {
  for (const wchar_t key : std::wstring(L"_ :@[`{/;\x00E4\x3042\xFF21\xFF0E")) EXPECT_FALSE(HostTakes(key));
}

TEST_F(InputFiltersTest, The_address_box_is_full_at_63_bytes) {
  combo.SetText(std::wstring(62, L'a'));
  EXPECT_TRUE(HostTakes(L'a'));
  combo.SetText(std::wstring(63, L'a'));
  EXPECT_FALSE(HostTakes(L'a'));
  EXPECT_TRUE(HostTakes(8));
}

TEST_F(InputFiltersTest, Selecting_all_covers_the_whole_text) {
  text.SetText(L"8193");
  TextBoxSellAll(text);
  EXPECT_EQ(text.selectionStart, 0);
  EXPECT_EQ(text.selectionLength, 4);
}

}  // namespace
}  // namespace tarvik
