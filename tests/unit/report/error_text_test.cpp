#include "report/error_text.h"

#include <gtest/gtest.h>

#include "platform/library_error.h"
#include "report/typed_numbers.h"
#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"

namespace tarvik::test {
namespace {

class ErrorTextTest : public testing::Test {
 protected:
  /// The dialog's text for the error that the action throws.
  template <typename Action>
  std::wstring TextOf(const Action& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return report::ErrorText(error, texts);
    }
    return L"(no error)";
  }

  FakeFiles files;
  FakeSystem system;
  FakeCodePage codePage;
  Resource resource{files, system, codePage};
  LanguageMode mode = 1;
  Texts texts{mode, resource};
};

TEST_F(ErrorTextTest, A_port_that_is_not_a_number_is_worded_like_any_number_box) {
  EXPECT_EQ(TextOf([] { report::ToInt16(L"80a", L"TCP po&rt:"); }),
            L"\"TCP port\" is not a whole number.\r\nEnter a whole number in this range:\r\n"
            L"TCP port: 0 ... 32767\r\nYou typed: \"80a\"");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf([] { report::ToInt16(L"80a", L"TCPﾎﾟｰﾄ番号(&R):"); }),
            L"\"TCPﾎﾟｰﾄ番号\"は整数ではありません。\r\n範囲内の整数を入力してください。\r\n"
            L"TCPﾎﾟｰﾄ番号: 0～32767\r\n入力値: \"80a\"");
}

TEST_F(ErrorTextTest, A_number_outside_the_range_is_still_called_a_number) {
  const std::wstring text = TextOf([] { report::ToInt16(L" +99999999999999999999 ", L"TCP po&rt:"); });
  EXPECT_EQ(text.find(L"not a whole number"), std::wstring::npos);
  EXPECT_TRUE(text.starts_with(L"Enter a whole number in this range:\r\n"));
}

TEST_F(ErrorTextTest, The_range_begins_at_0_although_negative_numbers_are_accepted) {
  EXPECT_NE(TextOf([] { report::ToInt32(L"x", L"Count:"); }).find(L"Count: 0 ... 2147483647\r\n"),
            std::wstring::npos);
  EXPECT_EQ(report::ToInt16(L"-32768", L"Box"), -32768);
  EXPECT_EQ(report::ToInt32(L"-1", L"Box"), -1);
}

TEST_F(ErrorTextTest, The_errors_own_text_does_not_call_a_number_not_a_number) {
  try {
    report::ToInt16(L"32768", L"TCP po&rt:");
    FAIL() << "32768 was accepted";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Text(), L"\"TCP port\": enter a whole number from 0 to 32767, not \"32768\"");
  }
}

TEST_F(ErrorTextTest, Typed_text_is_truncated_to_60_characters) {
  const std::wstring sixty(60, L'x');
  EXPECT_TRUE(TextOf([&] { report::ToInt32(sixty, L"Box"); }).ends_with(L"\"" + sixty + L"\""));
  EXPECT_TRUE(TextOf([&] { report::ToInt32(sixty + L"y", L"Box"); }).ends_with(L"\"" + sixty + L"...\""));
}

TEST_F(ErrorTextTest, A_library_that_cannot_be_loaded_is_reported_with_Windows_reason) {
  const auto fail = [] {
    throw LibraryError::CannotBeLoaded(L"NxLib32.dll", L"ERROR: 126 - A dependency is missing.");
  };
  EXPECT_EQ(TextOf(fail), L"NxLib32.dll cannot be loaded.\r\nERROR: 126 - A dependency is missing.");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf(fail), L"NxLib32.dllを読み込めません。\r\nERROR: 126 - A dependency is missing.");
}

TEST_F(ErrorTextTest, A_missing_function_is_named) {
  const auto fail = [] { throw LibraryError::DoesNotExport(L"NxLib32.dll", L"nx_sysinfo"); };
  EXPECT_EQ(TextOf(fail), L"NxLib32.dll does not export nx_sysinfo.");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf(fail), L"NxLib32.dllはnx_sysinfoをエクスポートしていません。");
}

TEST_F(ErrorTextTest, The_language_files_supply_these_texts) {
  mode = kLanguageFile;
  files.contents[L"D\\Language\\T_1033.ini"] = "";
  system.profile["D\\Language\\T_1033.ini|1033|149"] = ": %1 is missing";
  resource.Initialize(1033, L"D", L"T");
  EXPECT_EQ(TextOf([] { throw LibraryError::DoesNotExport(L"a.dll", L"b"); }), L"a.dll: b is missing");
}

TEST_F(ErrorTextTest, An_older_language_file_leaves_no_number_in_brackets_within_a_sentence) {
  mode = kLanguageFile;
  files.contents[L"D\\Language\\T_1033.ini"] = "";
  system.profile["D\\Language\\T_1033.ini|1033|133"] = "Range:";
  system.profile["D\\Language\\T_1033.ini|1033|134"] = "Typed: ";
  resource.Initialize(1033, L"D", L"T");
  EXPECT_EQ(TextOf([] { report::ToInt16(L"x", L"Port"); }),
            L"\"Port\" is not a whole number.\r\nRange:\r\nPort: 0 ... 32767\r\nTyped: \"x\"");
  EXPECT_EQ(TextOf([] { throw LibraryError::CannotBeLoaded(L"a.dll", L"why"); }),
            L"a.dll cannot be loaded.\r\nwhy");
  EXPECT_EQ(TextOf([] { throw LibraryError::DoesNotExport(L"a.dll", L"b"); }), L"a.dll does not export b.");
}

TEST_F(ErrorTextTest, Any_other_error_keeps_its_text) {
  EXPECT_EQ(TextOf([] { throw RuntimeError(L"The page is switched off."); }), L"The page is switched off.");
}

TEST(BoxNameTest, A_box_name_has_neither_mnemonic_nor_colon) {
  EXPECT_EQ(report::BoxName(L"TCP po&rt:"), L"TCP port");
  EXPECT_EQ(report::BoxName(L"Ping回数(&C):"), L"Ping回数");
  EXPECT_EQ(report::BoxName(L"Length"), L"Length");
  EXPECT_EQ(report::BoxName(L"A && B"), L"A & B");
  EXPECT_EQ(report::BoxName(L""), L"");
}

}  // namespace
}  // namespace tarvik::test
