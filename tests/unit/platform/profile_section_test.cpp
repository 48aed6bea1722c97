#include "platform/profile_section.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvik::test {
namespace {

std::string Value(const std::string& file, const std::string& section, const std::string& key) {
  return std::string(ProfileValue(ReadProfileSection(file, section), key));
}

TEST(ProfileSection, A_value_is_found_by_section_and_key) {
  const std::string file = "[1033]\r\n1=&Help\r\n2=About\r\n[1041]\r\n1=other\r\n";
  EXPECT_EQ(Value(file, "1033", "1"), "&Help");
  EXPECT_EQ(Value(file, "1033", "2"), "About");
  EXPECT_EQ(Value(file, "1041", "1"), "other");
  EXPECT_EQ(Value(file, "1041", "2"), "");
  EXPECT_EQ(Value(file, "1031", "1"), "");
}

TEST(ProfileSection, Entries_are_in_file_order) {
  const auto entries = ReadProfileSection("[a]\nx=1\nb=2\nx=3", "a");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].key, "x");
  EXPECT_EQ(entries[1].value, "2");
  EXPECT_EQ(entries[2].value, "3");
}

TEST(ProfileSection, Sections_and_keys_are_case_insensitive) {
  EXPECT_EQ(Value("[Texts]\nKey=1", "tEXTS", "kEY"), "1");
}

TEST(ProfileSection, The_first_of_equal_keys_and_of_equal_sections_counts) {
  const std::string file = "[a]\nk=1\nK=2\n[b]\nk=3\n[A]\nk=4\nonly=5";
  EXPECT_EQ(Value(file, "a", "k"), "1");
  EXPECT_EQ(Value(file, "a", "only"), "");
}

TEST(ProfileSection, Spaces_around_keys_and_values_are_removed) {
  EXPECT_EQ(Value("  [a]  \n\t k \t= \t1 2\t \n", "a", "k"), "1 2");
}

TEST(ProfileSection, One_pair_of_quotes_around_a_value_is_removed_but_not_the_spaces_inside) {
  const std::string file =
      "[a]\n1= \" x \" \n2='y '\n3=\"\"\n4=\"\n5=\"a'\n6=\"\"q\"\"\n7=say \"no\"\n8=\"a\" b";
  EXPECT_EQ(Value(file, "a", "1"), " x ");
  EXPECT_EQ(Value(file, "a", "2"), "y ");
  EXPECT_EQ(Value(file, "a", "3"), "");
  EXPECT_EQ(Value(file, "a", "4"), "\"");
  EXPECT_EQ(Value(file, "a", "5"), "\"a'");
  EXPECT_EQ(Value(file, "a", "6"), "\"q\"");
  EXPECT_EQ(Value(file, "a", "7"), "say \"no\"");
  EXPECT_EQ(Value(file, "a", "8"), "\"a\" b");
}

TEST(ProfileSection, A_value_may_contain_the_equals_sign_and_a_semicolon) {
  EXPECT_EQ(Value("[a]\nk=x=y;z", "a", "k"), "x=y;z");
}

TEST(ProfileSection, Comments_and_lines_without_an_equals_sign_are_skipped) {
  const auto entries = ReadProfileSection("[a]\n;k=1\n  ;k=2\nword\n\nk=3", "a");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].value, "3");
}

TEST(ProfileSection, CR_LF_and_both_together_end_a_line) {
  for (const char* const end : {"\r\n", "\n", "\r"})
    EXPECT_EQ(Value(std::string("[a]") + end + "x=1" + end + "y=2" + end, "a", "y"), "2");
}

TEST(ProfileSection, Keys_before_the_first_section_are_ignored) {
  EXPECT_EQ(Value("k=1\n[a]\n", "a", "k"), "");
}

TEST(ProfileSection, Double_byte_characters_are_kept_whole) {
  // The square brackets, 0x5B and 0x5D, and 0x5C are also second bytes of Japanese characters.
  EXPECT_EQ(Value("[a]\nk=\x83\x5B\x83\x5D\x95\x5C\n", "a", "k"), "\x83\x5B\x83\x5D\x95\x5C");
}

TEST(ProfileSection, Malformed_files_do_no_harm) {
  for (const char* const file : {"", "[", "[a", "=", "[a]", "[]\n=", "[a]\n=1", "\n\n\r", "[a]\nk="})
    EXPECT_EQ(Value(file, "a", "k"), "");
  EXPECT_EQ(Value(std::string("[a]\nk=1\0x\nl=2", 13), "a", "l"), "2");
}

}  // namespace
}  // namespace tarvik::test
