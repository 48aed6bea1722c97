#include "resources/messages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>

#include "resources/resource.h"
#include "tests/recorded/fake_code_page.h"
#include "tests/recorded/recorded_boxes.h"
#include "tests/recorded/recorded_files.h"
#include "tests/recorded/recorded_profile_strings.h"

namespace tarvik::test {
namespace {

const int kMessages = static_cast<int>(Message::Count);

/// The ids and texts of a language file of the program, in UTF-8.
std::map<int, std::string> LanguageFile(int language) {
  std::ifstream file(std::string(TARVIK_SOURCE_FOLDER "/resources/language/Tarvik.exe_") +
                     std::to_string(language) + ".ini");
  std::string line;
  std::getline(file, line);
  EXPECT_EQ(line, "[" + std::to_string(language) + "]");
  std::map<int, std::string> texts;
  while (std::getline(file, line)) {
    const size_t equals = line.find('=');
    const int id = std::stoi(line.substr(0, equals));
    EXPECT_TRUE(texts.emplace(id, line.substr(equals + 1)).second) << id << " stands twice";
  }
  return texts;
}

TEST(Messages, No_two_messages_share_a_number) {
  std::set<int32_t> ids;
  for (int i = 0; i < kMessages; ++i) EXPECT_TRUE(ids.insert(RowOf(static_cast<Message>(i)).id).second) << i;
}

TEST(Messages, Both_language_files_hold_every_number_and_no_other) {
  for (const int language : {1033, 1041}) {
    const std::map<int, std::string> texts = LanguageFile(language);
    EXPECT_EQ(texts.size(), static_cast<size_t>(kMessages));
    for (int i = 0; i < kMessages; ++i) {
      const int id = RowOf(static_cast<Message>(i)).id;
      EXPECT_TRUE(texts.contains(id)) << id << " in " << language;
      EXPECT_TRUE(texts.contains(id) && !texts.at(id).empty()) << id << " in " << language;
    }
  }
}

TEST(Messages, No_text_of_a_language_file_is_longer_than_the_reading_buffer) {
  for (const int language : {1033, 1041})
    for (const auto& [id, text] : LanguageFile(language)) EXPECT_LT(text.size(), 511U) << id;
}

class TextsTest : public testing::Test {
 protected:
  TextsTest() {
    files.contents[L"D\\Language\\T_1033.ini"] = "";
    profile.values["D\\Language\\T_1033.ini|1033|101"] = "from the file";
    resource.Initialize(1033, L"D", L"T");
  }

  RecordedFiles files;
  RecordedProfileStrings profile;
  FakeCodePage codePage;
  RecordedBoxes boxes;
  Resource resource{files, profile, codePage, boxes};
  LanguageMode mode = kLanguageFile;
  Texts texts{mode, resource};
};

TEST_F(TextsTest, The_mode_minus_1_reads_the_language_file) {
  EXPECT_EQ(texts.Get(Message::CannotResolve), L"from the file");
}

TEST_F(TextsTest, The_mode_0_is_Japanese_and_leaves_out_what_has_no_Japanese_text) {
  mode = kBuiltInJapanese;
  EXPECT_EQ(texts.Get(Message::CannotResolve), std::nullopt);
  EXPECT_EQ(texts.Get(Message::NoSubnetMask), L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません");
}

TEST_F(TextsTest, Every_other_mode_is_English) {
  for (const LanguageMode other : {1, -2, 1041}) {
    mode = other;
    EXPECT_EQ(texts.Get(Message::CannotResolve), L"Cannot resolve specified host name to IP address");
  }
}

}  // namespace
}  // namespace tarvik::test
