#include "resources/messages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>

#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"

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
    EXPECT_TRUE(texts.emplace(id, line.substr(equals + 1)).second) << id << " appears twice";
  }
  return texts;
}

TEST(Messages, No_two_messages_share_a_number) {
  std::set<int32_t> ids;
  for (int i = 0; i < kMessages; ++i) EXPECT_TRUE(ids.insert(RowOf(static_cast<Message>(i)).id).second) << i;
}

TEST(Messages, Both_language_files_contain_every_number_and_no_other) {
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

TEST(Messages, Every_text_of_a_language_file_fits_the_reading_buffer) {
  for (const int language : {1033, 1041})
    for (const auto& [id, text] : LanguageFile(language)) EXPECT_LT(text.size(), 511U) << id;
}

/// A built-in text as a language file writes it: in UTF-8, with the two characters "\\n" for a line break,
/// and in quotes where a space at an end has to survive.
std::string AsInTheFile(const std::wstring& text) {
  std::string bytes;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto letter = static_cast<uint32_t>(text[i]);
    if (letter == L'\r') continue;
    if (letter == L'\n') {
      bytes += "\\n";
    } else if (letter < 0x80) {
      bytes.push_back(static_cast<char>(letter));
    } else if (letter < 0x800) {
      bytes.push_back(static_cast<char>(0xC0 | letter >> 6));
      bytes.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
    } else {
      bytes.push_back(static_cast<char>(0xE0 | letter >> 12));
      bytes.push_back(static_cast<char>(0x80 | (letter >> 6 & 0x3F)));
      bytes.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
    }
  }
  return bytes.starts_with(' ') || bytes.ends_with(' ') ? "\"" + bytes + "\"" : bytes;
}

/// Texts that a language file words differently from the built-in table.
const std::map<Message, const char*> kWordedDifferently = {
    {Message::OptionCheckError, "the table's text is followed by the code"},
    {Message::SystemInfoError, "the table's text is followed by the code"},
    {Message::PmcLengthError, "the table's text is followed by the length"},
    {Message::K7MustBeStopped, "the table's wording is fixed, the file's is ours"},
    {Message::StartingService, "the table's wording is fixed, the file's is ours"},
    {Message::ConfirmStop, "the table's wording is fixed, the file's is ours"},
    {Message::ServiceStopped, "the table's wording is fixed, the file's is ours"},
};

TEST(Messages, All_other_texts_of_the_language_files_equal_the_built_in_ones) {
  const std::map<int, std::string> english = LanguageFile(1033);
  const std::map<int, std::string> japanese = LanguageFile(1041);
  for (int i = 0; i < kMessages; ++i) {
    const auto message = static_cast<Message>(i);
    const MessageRow& row = RowOf(message);
    if (kWordedDifferently.contains(message)) continue;
    EXPECT_EQ(english.at(row.id), AsInTheFile(row.english)) << row.id;
    if (row.japanese != nullptr) {
      EXPECT_EQ(japanese.at(row.id), AsInTheFile(row.japanese)) << row.id;
    }
  }
}

TEST(Messages, Only_built_in_texts_leave_room_for_an_added_number) {
  const std::map<Message, const char*> endings = {{Message::OptionCheckError, "="},
                                                  {Message::SystemInfoError, "="}};
  for (const auto& [message, ending] : endings) {
    const MessageRow& row = RowOf(message);
    EXPECT_EQ(LanguageFile(1033).at(row.id) + ending, AsInTheFile(row.english)) << row.id;
    EXPECT_EQ(LanguageFile(1041).at(row.id) + ending, AsInTheFile(row.japanese)) << row.id;
  }
  const MessageRow& length = RowOf(Message::PmcLengthError);
  EXPECT_EQ(LanguageFile(1033).at(length.id), AsInTheFile(length.english) + "8000");
  EXPECT_EQ(LanguageFile(1041).at(length.id), AsInTheFile(length.japanese) + "8000");
}

class TextsTest : public testing::Test {
 protected:
  TextsTest() {
    files.contents[L"D\\Language\\T_1033.ini"] = "";
    system.profile["D\\Language\\T_1033.ini|1033|101"] = "from the file";
    resource.Initialize(1033, L"D", L"T");
  }

  FakeFiles files;
  FakeSystem system;
  FakeCodePage codePage;
  Resource resource{files, system, codePage};
  LanguageMode mode = kLanguageFile;
  Texts texts{mode, resource};
};

TEST_F(TextsTest, Mode_minus_1_reads_the_language_file) {
  EXPECT_EQ(texts.Get(Message::CannotResolve), L"from the file");
}

TEST_F(TextsTest, Mode_0_is_Japanese_and_leaves_out_messages_without_a_Japanese_text) {
  mode = kBuiltInJapanese;
  EXPECT_EQ(texts.Get(Message::CannotResolve), std::nullopt);
  EXPECT_EQ(texts.Get(Message::NoSubnetMask), L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません");
}

TEST_F(TextsTest, FromFile_reads_the_file_in_every_mode) {
  for (const LanguageMode each : {kLanguageFile, kBuiltInJapanese, 1}) {
    mode = each;
    EXPECT_EQ(texts.FromFile(Message::CannotResolve), L"from the file");
  }
}

TEST_F(TextsTest, FromFile_returns_the_built_in_text_when_the_file_has_none) {
  for (int round = 0; round < 2; ++round) {  // the second one answers from the cache
    mode = kBuiltInJapanese;
    EXPECT_EQ(texts.FromFile(Message::NoSubnetMask), L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません");
    for (const LanguageMode other : {kLanguageFile, 1}) {
      mode = other;
      EXPECT_EQ(texts.FromFile(Message::NoSubnetMask), L"Subnet mask is not specified");
    }
  }
  EXPECT_EQ(system.profileReads, 1);
}

TEST_F(TextsTest, Every_other_mode_is_English) {
  for (const LanguageMode other : {1, -2, 1041}) {
    mode = other;
    EXPECT_EQ(texts.Get(Message::CannotResolve), L"Cannot resolve specified host name to IP address");
  }
}

}  // namespace
}  // namespace tarvik::test
