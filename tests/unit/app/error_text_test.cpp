#include "app/error_text.h"

#include <gtest/gtest.h>

#include "app/input_filters.h"
#include "platform/library_error.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_profile_strings.h"

namespace tarvik::test {
namespace {

class ErrorTextTest : public testing::Test {
 protected:
  /// What the dialog says of the error that the action throws.
  template <typename Action>
  std::wstring TextOf(const Action& action) {
    try {
      action();
    } catch (const RuntimeError& error) {
      return ErrorText(error, texts);
    }
    return L"(no error)";
  }

  FakeFiles files;
  FakeProfileStrings profile;
  FakeCodePage codePage;
  FakeBoxes boxes;
  Resource resource{files, profile, codePage, boxes};
  LanguageMode mode = 1;
  Texts texts{mode, resource};
};

TEST_F(ErrorTextTest, A_port_that_is_no_number_is_worded_as_a_number_box_words_it) {
  EXPECT_EQ(TextOf([] { ToInt16(L"80a", L"TCP po&rt:"); }),
            L"\"TCP port\" is not a whole number.\r\nEnter a whole number in this range:\r\n"
            L"TCP port: -32768 ... 32767\r\nYou typed: \"80a\"");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf([] { ToInt16(L"80a", L"TCPﾎﾟｰﾄ番号(&R):"); }),
            L"\"TCPﾎﾟｰﾄ番号\"は整数ではありません。\r\n範囲内の整数を入力してください。\r\n"
            L"TCPﾎﾟｰﾄ番号: -32768～32767\r\n入力値: \"80a\"");
}

TEST_F(ErrorTextTest, A_number_outside_the_range_is_still_called_a_number) {
  const std::wstring text = TextOf([] { ToInt16(L" +99999999999999999999 ", L"TCP po&rt:"); });
  EXPECT_EQ(text.find(L"not a whole number"), std::wstring::npos);
  EXPECT_TRUE(text.starts_with(L"Enter a whole number in this range:\r\n"));
}

TEST_F(ErrorTextTest, Typed_text_is_cut_after_60_characters) {
  const std::wstring sixty(60, L'x');
  EXPECT_TRUE(TextOf([&] { ToInt32(sixty, L"Box"); }).ends_with(L"\"" + sixty + L"\""));
  EXPECT_TRUE(TextOf([&] { ToInt32(sixty + L"y", L"Box"); }).ends_with(L"\"" + sixty + L"...\""));
}

TEST_F(ErrorTextTest, A_library_that_cannot_be_loaded_gives_the_reason_of_Windows) {
  const auto fail = [] {
    throw LibraryError::CannotBeLoaded(L"NxLib32.dll", L"ERROR: 126 - A dependency is missing.");
  };
  EXPECT_EQ(TextOf(fail), L"NxLib32.dll cannot be loaded.\r\nERROR: 126 - A dependency is missing.");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf(fail), L"NxLib32.dllを読み込めません。\r\nERROR: 126 - A dependency is missing.");
}

TEST_F(ErrorTextTest, A_missing_call_is_named) {
  const auto fail = [] { throw LibraryError::DoesNotExport(L"NxLib32.dll", L"nx_sysinfo"); };
  EXPECT_EQ(TextOf(fail), L"NxLib32.dll does not export nx_sysinfo.");
  mode = kBuiltInJapanese;
  EXPECT_EQ(TextOf(fail), L"NxLib32.dllはnx_sysinfoをエクスポートしていません。");
}

TEST_F(ErrorTextTest, The_language_files_have_these_texts_too) {
  mode = kLanguageFile;
  files.contents[L"D\\Language\\T_1033.ini"] = "";
  profile.values["D\\Language\\T_1033.ini|1033|149"] = ": %1 is missing";
  resource.Initialize(1033, L"D", L"T");
  EXPECT_EQ(TextOf([] { throw LibraryError::DoesNotExport(L"a.dll", L"b"); }), L"a.dll: b is missing");
}

TEST_F(ErrorTextTest, Any_other_error_keeps_its_text) {
  EXPECT_EQ(TextOf([] { throw RuntimeError(L"The page is switched off."); }), L"The page is switched off.");
}

}  // namespace
}  // namespace tarvik::test
