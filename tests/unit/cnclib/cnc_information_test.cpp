// How the controller's model and its options are worded.

#include <gtest/gtest.h>

#include <limits>

#include "cnclib/cnc_check.h"
#include "tests/fakes/fake_context.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

TEST(GetModelFromSysInfo, The_high_byte_is_the_generations_letter) {
  const std::pair<int16_t, const wchar_t*> expected[] = {
      {std::numeric_limits<int16_t>::min(), L""},
      {-512, L""},
      {0, L""},
      {255, L""},
      {256, L"A"},
      {512, L"B"},
      {767, L"B"},
      {6656, L"Z"},
      {6912, L"(6912)"},
      {32767, L"(32767)"},
  };
  for (const auto& [addinfo, model] : expected) {
    std::wstring text = L"old";
    EXPECT_TRUE(GetModelFromSysInfo(addinfo, text));
    EXPECT_EQ(text, model) << addinfo;
  }
}

struct CncOptionsTest : testing::Test, FakeContext {
  CncOptionsTest() {
    files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
    resource.Initialize(1033, L"C:\\Data", L"Tarvik.exe");
    for (int id = 125; id <= 132; ++id)
      system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|" + std::to_string(id)] =
          "text " + std::to_string(id);
  }
};

TEST_F(CncOptionsTest, The_options_are_listed_by_name_in_ascending_order) {
  DisplayNexal1Options(results, texts, false, 0b1000101);
  EXPECT_EQ(results.Lines(), (Lines{RowOf(Message::Option0).english, RowOf(Message::Option2).english,
                                    RowOf(Message::Option6).english}));
  for (const std::wstring& line : results.Lines()) EXPECT_EQ(line.find(L' '), 0U);
}

TEST_F(CncOptionsTest, The_options_are_listed_in_the_language_of_the_mode) {
  mode = kLanguageFile;
  DisplayNexal1Options(results, texts, false, 0x7F);
  mode = kBuiltInJapanese;
  DisplayNexal1Options(results, texts, false, 2);
  EXPECT_EQ(results.Lines(), (Lines{L"text 125", L"text 126", L"text 127", L"text 128", L"text 129",
                                    L"text 130", L"text 131", RowOf(Message::Option1).japanese}));
}

TEST_F(CncOptionsTest, An_option_word_of_0_is_listed_as_none) {
  DisplayNexal1Options(results, texts, false, 0);
  mode = kBuiltInJapanese;
  DisplayNexal1Options(results, texts, false, 0);
  mode = kLanguageFile;
  DisplayNexal1Options(results, texts, false, 0);
  EXPECT_EQ(results.Lines(), (Lines{L" (None)", L" (なし)", L"text 132"}));
}

TEST_F(CncOptionsTest, Options_without_a_name_are_not_listed) {
  DisplayNexal1Options(results, texts, false, 0x80);
  EXPECT_TRUE(results.Lines().empty());
}

TEST_F(CncOptionsTest, A_missing_library_lists_no_options) {
  DisplayNexal1Options(results, texts, true, 0);
  EXPECT_TRUE(results.Lines().empty());
}

}  // namespace
}  // namespace tarvik::test
