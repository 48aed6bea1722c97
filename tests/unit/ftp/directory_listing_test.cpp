#include "ftp/directory_listing.h"

#include <gtest/gtest.h>

#include <random>

#include "ftp/str_sort.h"
#include "tests/fakes/fake_context.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

struct Listing : testing::Test, FakeContext {
  FtpFile File(const std::wstring& name, uint64_t size = 0, uint32_t attributes = 0x80) {
    FtpFile file;
    file.FileName = name;
    file.Size = size;
    file.Attr = attributes;
    return file;
  }

  /// The lines below the header.
  Lines List(const std::vector<FtpFile>& files) {
    results.ClearList();
    listing.BeginEnumFiles();
    for (const FtpFile& file : files) listing.EnumFile(file);
    listing.EndEnumFile();
    return {results.Lines().begin() + 3, results.Lines().end()};
  }

  static std::wstring Blanks(size_t count) { return std::wstring(count, L' '); }

  DirectoryListing listing{results, system};
};

TEST_F(Listing, The_heading_is_an_empty_line_the_columns_and_45_hyphens) {
  EXPECT_TRUE(List({}).empty());
  EXPECT_EQ(results.Lines(), (Lines{L"", L"Name" + Blanks(31 + 6) + L"Size", std::wstring(45, L'-')}));
}

TEST_F(Listing, The_directory_itself_and_its_parent_are_skipped) {
  EXPECT_TRUE(List({File(L".", 0, 0x10), File(L"..", 0, 0x10)}).empty());
  EXPECT_EQ(List({File(L"...")}).size(), 1U);
}

TEST_F(Listing, Directories_precede_files_and_each_group_is_sorted) {
  EXPECT_EQ(
      List({File(L"c.txt", 1), File(L"A.txt", 23), File(L"b", 4096, 0x10)}),
      (Lines{L"/b" + Blanks(33 + 10), L"A.txt" + Blanks(30 + 8) + L"23", L"c.txt" + Blanks(30 + 9) + L"1"}));
}

TEST_F(Listing, A_directory_is_recognised_by_its_bit_among_others) {
  EXPECT_EQ(List({File(L"d", 7, 0x13)}), Lines{L"/d" + Blanks(43)});
}

TEST_F(Listing, Sorting_ignores_case) {
  const Lines lines = List({File(L"b"), File(L"C"), File(L"A"), File(L"d")});
  EXPECT_EQ(lines[0][0], L'A');
  EXPECT_EQ(lines[1][0], L'b');
  EXPECT_EQ(lines[2][0], L'C');
  EXPECT_EQ(lines[3][0], L'd');
}

TEST_F(Listing, A_name_over_35_columns_is_shown_whole_before_its_size) {
  const std::wstring name(36, L'n');
  EXPECT_EQ(List({File(name, 5)}), Lines{name + Blanks(9) + L"5"});
  EXPECT_EQ(List({File(name.substr(1), 5)}), Lines{name.substr(1) + Blanks(9) + L"5"});
  EXPECT_EQ(List({File(name.substr(2), 5)}), Lines{name.substr(2) + L" " + Blanks(9) + L"5"});
}

TEST_F(Listing, A_size_over_10_columns_is_shown_whole) {
  EXPECT_EQ(List({File(L"n", 9'999'999'999)}), Lines{L"n" + Blanks(34) + L"9999999999"});
  EXPECT_EQ(List({File(L"n", 12'345'678'901)}), Lines{L"n" + Blanks(34) + L"12345678901"});
}

TEST_F(Listing, An_impossible_size_is_not_shown_as_negative) {
  EXPECT_EQ(List({File(L"n", ~uint64_t{0})}), Lines{L"n" + Blanks(34) + L"9223372036854775807"});
}

TEST_F(Listing, A_name_with_line_breaks_is_one_line) {
  EXPECT_EQ(List({File(L"a\r\nb\n", 5)}), Lines{L"a\r\nb\n" + Blanks(30 + 9) + L"5"});
}

TEST_F(Listing, A_second_listing_discards_the_first) {
  List({File(L"a")});
  EXPECT_EQ(List({File(L"b")}).size(), 1U);
}

TEST_F(Listing, A_line_after_1001_clears_the_list_first) {
  std::vector<FtpFile> files;
  for (int i = 0; i < 2000; ++i) files.push_back(File(std::to_wstring(10'000 + i)));
  results.ClearList();
  listing.BeginEnumFiles();
  for (const FtpFile& file : files) listing.EnumFile(file);
  listing.EndEnumFile();
  // 3 of the header and 998 entries, then 1001, then the last one.
  ASSERT_EQ(results.Lines().size(), 1U);
  EXPECT_EQ(results.Lines()[0].substr(0, 5), L"11999");
}

TEST_F(Listing, A_listing_of_40000_entries_is_complete_and_sorted) {
  std::vector<FtpFile> files;
  for (int i = 0; i < 40'000; ++i) files.push_back(File(std::to_wstring(100'000 + (i * 7919) % 40'000)));
  std::vector<std::wstring> lines;
  for (const FtpFile& file : files) lines.push_back(file.FileName);
  const Lines sorted = Sorted(lines, system);
  ASSERT_EQ(sorted.size(), 40'000U);
  for (int i = 0; i < 40'000; ++i) ASSERT_EQ(sorted[static_cast<size_t>(i)], std::to_wstring(100'000 + i));
  // 3 + 40,000 lines; the list is cleared after every 1,001.
  results.ClearList();
  listing.BeginEnumFiles();
  for (const FtpFile& file : files) listing.EnumFile(file);
  listing.EndEnumFile();
  ASSERT_EQ(results.Lines().size(), 40'003U % 1001U);
  EXPECT_EQ(results.Lines().back().substr(0, 6), L"139999");
}

TEST_F(Listing, The_entries_are_painted_at_once) {
  List({File(L"a"), File(L"b"), File(L"d", 0, 0x10)});
  EXPECT_EQ(view.updates, 5);  // cleared, three for the header, one for all entries
}

TEST_F(Listing, Each_line_gets_its_sort_key_once) {
  std::vector<FtpFile> files;
  for (int i = 0; i < 100; ++i) files.push_back(File(std::to_wstring(i), 0, i % 2 == 0 ? 0x10 : 0));
  List(files);
  EXPECT_EQ(system.keysMade, 100);
}

TEST_F(Listing, The_order_equals_that_of_a_plain_StrSort_even_for_equal_lines) {
  std::mt19937 random(1);
  for (const int letters : {1, 2, 4, 26}) {
    Lines lines;
    for (int i = 0; i < 500; ++i) {
      std::wstring line;
      for (int k = 0; k < 2; ++k)
        line += static_cast<wchar_t>((random() % 2 == 0 ? L'a' : L'A') +
                                     random() % static_cast<unsigned>(letters));
      lines.push_back(line);
    }
    Lines plain = lines;
    StrSort(plain, 0, static_cast<int32_t>(plain.size()) - 1,
            [this](const std::wstring& a, const std::wstring& b) {
              return system.SortKey(a) < system.SortKey(b);
            });
    EXPECT_EQ(Sorted(lines, system), plain) << letters;
  }
}

TEST_F(Listing, A_list_that_needs_too_many_comparisons_is_sorted_stably) {
  const Lines lines = {L"b", L"A", L"B", L"a", L"b", L"A"};
  EXPECT_EQ(Sorted(lines, system, 3), (Lines{L"A", L"a", L"A", L"b", L"B", L"b"}));
}

TEST_F(Listing, Equal_lines_have_the_order_of_the_plain_sort) {
  Lines lines;
  for (int i = 0; i < 300; ++i) lines.push_back(i % 3 == 0 ? L"NAME" : L"name");
  Lines plain = lines;
  StrSort(plain, 0, 299, [](const std::wstring&, const std::wstring&) { return false; });
  ASSERT_NE(plain, lines);
  EXPECT_EQ(Sorted(lines, system, 300 * 299 / 2), plain);
  EXPECT_EQ(Sorted(lines, system, 300 * 299 / 2 - 1), lines);
  EXPECT_GE(kMaxComparisons, int64_t{10'000} * 9'999 / 2);
}

TEST_F(Listing, The_comparisons_of_100000_equal_names_are_limited) {
  // That would be 5,000,000,000 comparisons.
  const Lines lines(100'000, L"name");
  EXPECT_EQ(Sorted(lines, system), lines);
}

TEST_F(Listing, A_list_that_rejects_a_line_is_painted_again) {
  listing.BeginEnumFiles();
  listing.EnumFile(File(L"a"));
  view.refusing = true;
  EXPECT_THROW(listing.EndEnumFile(), RuntimeError);
}

}  // namespace
}  // namespace tarvik::test
