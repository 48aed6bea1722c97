#include "platform/text.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/fixed_buffer.h"

namespace tarvik {
namespace {

TEST(Text, A_decimal_number_has_a_minus_sign_only_when_negative) {
  EXPECT_EQ(Decimal(0), L"0");
  EXPECT_EQ(Decimal(-2147483648LL), L"-2147483648");
}

TEST(Text, Padding_with_zeros_never_truncates) {
  EXPECT_EQ(ZeroPadded(1, 4), L"0001");
  EXPECT_EQ(ZeroPadded(10000, 4), L"10000");
  EXPECT_EQ(ZeroPadded(-1, 4), L"-0001");
}

TEST(Text, Hexadecimal_is_upper_case_without_leading_zeros) {
  EXPECT_EQ(Hexadecimal(0), L"0");
  EXPECT_EQ(Hexadecimal(0x1009F00A), L"1009F00A");
  EXPECT_EQ(Hexadecimal(0xFFFFFFFF), L"FFFFFFFF");
}

TEST(Text, An_integer_may_have_spaces_around_it_and_one_sign) {
  EXPECT_EQ(ParseInt32(L" 12 "), 12);
  EXPECT_EQ(ParseInt32(L"+12"), 12);
  EXPECT_EQ(ParseInt32(L"-12"), -12);
  for (const wchar_t* const text : {L"", L" ", L"-", L"+-1", L"1 2", L"1.0", L"0x1", L"1e3", L"\xFF11"})
    EXPECT_EQ(ParseInt32(text), std::nullopt) << text;
}

TEST(Text, A_number_must_fit_its_width) {
  EXPECT_EQ(ParseInt16(L"32767"), 32767);
  EXPECT_EQ(ParseInt16(L"32768"), std::nullopt);
  EXPECT_EQ(ParseInt16(L"-32768"), -32768);
  EXPECT_EQ(ParseInt16(L"-32769"), std::nullopt);
  EXPECT_EQ(ParseInt32(L"2147483647"), 2147483647);
  EXPECT_EQ(ParseInt32(L"2147483648"), std::nullopt);
  EXPECT_EQ(ParseInt32(L"-2147483648"), std::numeric_limits<int32_t>::min());
  EXPECT_EQ(ParseInt32(L"-2147483649"), std::nullopt);
  EXPECT_EQ(ParseInt32(std::wstring(5000, L'9')), std::nullopt);
}

TEST(Text, Split_keeps_empty_pieces) {
  EXPECT_EQ(Split(L"", L","), std::vector<std::wstring>{L""});
  EXPECT_EQ(Split(L"a,,b,", L","), (std::vector<std::wstring>{L"a", L"", L"b", L""}));
}

TEST(Text, Trimming_removes_only_spaces) {
  EXPECT_EQ(TrimSpaces(L"  a b "), L"a b");
  EXPECT_EQ(TrimSpaces(L"   "), L"");
  EXPECT_EQ(TrimSpaces(L"\ta"), L"\ta");
}

TEST(FixedBuffer, A_text_ends_at_its_first_NUL_or_at_the_end_of_the_buffer) {
  EXPECT_EQ(TrimNull(std::string_view("ab\0cd", 5)), "ab");
  EXPECT_EQ(TrimNull(std::string_view("abcde", 5)), "abcde");
  EXPECT_EQ(TrimNull(std::string_view()), "");
}

TEST(FixedBuffer, Padding_with_spaces_yields_exactly_the_length) {
  EXPECT_EQ(PadWithSpaces("ab", 4), "ab  ");
  EXPECT_EQ(PadWithSpaces("abcdef", 4), "abcd");
}

}  // namespace
}  // namespace tarvik
