#include "resources/resource.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"

namespace tarvik::test {
namespace {

class ResourceTest : public testing::Test {
 protected:
  ResourceTest() { files.contents[L"C:\\Data\\Language\\Tarvik.exe_1041.ini"] = ""; }
  void Add(int id, const std::string& text) {
    system.profile["C:\\Data\\Language\\Tarvik.exe_1041.ini|1041|" + std::to_string(id)] = text;
  }
  bool Initialize(int32_t language = 1041) {
    return resource.Initialize(language, L"C:\\Data", L"Tarvik.exe");
  }

  FakeFiles files;
  FakeSystem system;
  FakeCodePage codePage;
  Resource resource{files, system, codePage};
};

TEST_F(ResourceTest, A_folder_with_or_without_a_final_backslash_gives_the_same_path) {
  EXPECT_TRUE(resource.Initialize(1041, L"C:\\Data", L"Tarvik.exe"));
  EXPECT_TRUE(resource.Initialize(1041, L"C:\\Data\\", L"Tarvik.exe"));
  EXPECT_EQ(resource.pLanguage(), 1041);
}

TEST_F(ResourceTest, A_missing_language_falls_back_to_English) {
  files.contents = {{L"C:\\Data\\Language\\Tarvik.exe_1033.ini", ""}};
  system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|5"] = "five";
  EXPECT_TRUE(Initialize(1031));
  EXPECT_EQ(resource.pLanguage(), 1033);
  EXPECT_EQ(resource.LoadString(5), L"five");
}

TEST_F(ResourceTest, Without_any_file_the_error_names_both_paths_and_texts_are_numbers_in_brackets) {
  files.contents.clear();
  EXPECT_FALSE(Initialize());
  EXPECT_EQ(resource.pErrorText(),
            L"Resource:Initialize\r\nNo such file (C:\\Data\\Language\\Tarvik.exe_1041.ini)\r\n"
            L"No such file (C:\\Data\\Language\\Tarvik.exe_1033.ini)\r\nCannot open message file\r\n");
  EXPECT_EQ(resource.LoadString(12), L"(12)");
}

TEST_F(ResourceTest, A_backslash_and_n_become_a_line_break) {
  Initialize();
  Add(1, "one\\ntwo\\n");
  EXPECT_EQ(resource.LoadString(1), L"one\r\ntwo\r\n");
}

TEST_F(ResourceTest, A_missing_id_is_a_number_in_brackets_and_read_once) {
  Initialize();
  EXPECT_EQ(resource.LoadString(12), L"(12)");
  EXPECT_EQ(resource.pErrorText(), L"Not exist");
  EXPECT_EQ(resource.LoadString(12), L"(12)");
  EXPECT_EQ(system.profileReads, 1);
}

TEST_F(ResourceTest, A_text_is_read_from_the_file_once) {
  Initialize();
  Add(7, "seven");
  EXPECT_EQ(resource.LoadString(7), L"seven");
  Add(7, "changed");
  EXPECT_EQ(resource.LoadString(7), L"seven");
  EXPECT_EQ(system.profileReads, 1);
  EXPECT_EQ(resource.pErrorText(), L"");
}

TEST_F(ResourceTest, A_text_that_fills_the_buffer_without_a_NUL_ends_with_the_buffer) {
  Initialize();
  system.profileUnterminated = true;
  EXPECT_EQ(resource.LoadString(1), std::wstring(512, L'x'));
}

TEST_F(ResourceTest, Any_other_failure_is_in_the_error_text) {
  Initialize();
  system.profileFails = true;
  EXPECT_EQ(resource.LoadString(3), L"(3)");
  EXPECT_EQ(resource.pErrorText(), L"Resource:LoadString(3, [The disk is gone.])\r\n");
}

TEST_F(ResourceTest, Terminate_clears_the_cache) {
  Initialize();
  Add(7, "seven");
  resource.LoadString(7);
  resource.Terminate();
  Initialize();
  Add(7, "changed");
  EXPECT_EQ(resource.LoadString(7), L"changed");
}

}  // namespace
}  // namespace tarvik::test
