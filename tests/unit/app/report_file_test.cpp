#include "app/report_file.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_files.h"

namespace tarvik::test {
namespace {

constexpr auto kEnglishTexts = report::AnswerLanguage::English;
constexpr wchar_t kReportPath[] = L"D:\\Reports\\a.html";
constexpr wchar_t kReportTemporary[] = L"D:\\Reports\\~Tarvik.tmp";

TEST(ReportPlaceTest, The_extension_that_was_typed_decides_the_kind) {
  const auto kind = [](const wchar_t* path, size_t shown) { return PlaceOfReport({path, shown}).kind; };
  EXPECT_EQ(kind(L"C:\\a.html", 1), ReportKind::Html);
  EXPECT_EQ(kind(L"C:\\a.HTM", 1), ReportKind::Html);
  EXPECT_EQ(kind(L"C:\\a.Txt", 0), ReportKind::Text);
  EXPECT_FALSE(PlaceOfReport({L"C:\\a.html", 0}).appended);
}

TEST(ReportPlaceTest, Without_one_the_kind_that_is_shown_decides_and_its_extension_is_appended) {
  // The numbers of an address are not an extension.
  const ReportPlace html = PlaceOfReport({L"C:\\Tarvik_192.168.1.100", 0});
  EXPECT_EQ(html.path, L"C:\\Tarvik_192.168.1.100.html");
  EXPECT_EQ(html.kind, ReportKind::Html);
  EXPECT_TRUE(html.appended);
  EXPECT_EQ(PlaceOfReport({L"C:\\Tarvik", 1}).path, L"C:\\Tarvik.txt");
}

TEST(ReportPlaceTest, A_path_has_a_folder_and_a_name) {
  EXPECT_EQ(FolderOf(L"C:\\Users\\anna\\a.txt"), L"C:\\Users\\anna");
  EXPECT_EQ(FolderOf(L"E:\\a.txt"), L"E:\\");
  EXPECT_EQ(FolderOf(L"a.txt"), L"");
  EXPECT_EQ(FileNameOf(L"C:\\Users\\anna\\a.txt"), L"a.txt");
  EXPECT_EQ(FileNameOf(L"a.txt"), L"a.txt");
}

TEST(SaveSafelyTest, Replaces_a_file_and_leaves_no_other) {
  FakeFiles files;
  files.contents[kReportPath] = "old";
  EXPECT_EQ(SaveSafely(files, kReportPath, "new"), 0U);
  EXPECT_EQ(files.contents, (std::map<std::wstring, std::string>{{kReportPath, "new"}}));
}

TEST(SaveSafelyTest, A_failure_keeps_the_old_file_and_leaves_no_other) {
  for (const wchar_t* const unwritable : {kReportPath, kReportTemporary}) {
    FakeFiles files;
    files.contents[kReportPath] = "old";
    files.unwritable = {unwritable};
    files.failure = 112;
    EXPECT_EQ(SaveSafely(files, kReportPath, "new"), 112U);
    EXPECT_EQ(files.contents, (std::map<std::wstring, std::string>{{kReportPath, "old"}}));
  }
}

TEST(SaveSafelyTest, A_file_that_has_the_temporary_name_is_kept) {
  FakeFiles files;
  files.contents[kReportTemporary] = "the user's";
  EXPECT_EQ(SaveSafely(files, kReportPath, "new"), 0U);
  EXPECT_EQ(files.contents,
            (std::map<std::wstring, std::string>{{kReportPath, "new"}, {kReportTemporary, "the user's"}}));
  files.contents[L"D:\\Reports\\~Tarvik2.tmp"] = files.contents[L"D:\\Reports\\~Tarvik3.tmp"] = "too";
  const auto before = files.contents;
  EXPECT_EQ(SaveSafely(files, kReportPath, "newer"), 80U);
  EXPECT_EQ(files.contents, before);
}

TEST(SaveSafelyTest, A_failure_without_a_number_is_a_failure) {
  FakeFiles files;
  files.unwritable = {kReportTemporary};
  files.failure = 0;
  EXPECT_NE(SaveSafely(files, kReportPath, "new"), 0U);
}

TEST(SaveFailureTest, The_text_says_what_to_do_and_has_the_number) {
  EXPECT_EQ(SaveFailureText(112, kEnglishTexts),
            L"The report was not saved (error 112).\r\nThe drive is full. Save on another one.");
  const auto has = [](uint32_t error, const wchar_t* words) {
    return SaveFailureText(error, kEnglishTexts).find(words) != std::wstring::npos;
  };
  for (const uint32_t error : {21U, 55U, 59U, 121U, 1167U, 1222U, 1231U, 1617U})
    EXPECT_TRUE(has(error, L"Plug the drive in again")) << error;
  EXPECT_TRUE(has(32, L"Another program has the file open"));
  EXPECT_TRUE(has(206, L"shorter name"));
  for (const wchar_t* name : {L"~Tarvik.tmp", L"~Tarvik2.tmp", L"~Tarvik3.tmp"})
    EXPECT_TRUE(has(80, name)) << "SaveSafely found no free temporary name";
  EXPECT_FALSE(has(80, L"write-protected"));
  for (const uint32_t error : {5U, 19U, 9999U, 0U})
    EXPECT_TRUE(has(error, L"Save in another folder")) << error;
  EXPECT_NE(SaveFailureText(5, report::AnswerLanguage::Japanese).find(L"エラー 5"), std::wstring::npos);
}

}  // namespace
}  // namespace tarvik::test
