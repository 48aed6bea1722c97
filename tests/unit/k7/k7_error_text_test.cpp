#include "k7/k7_error_text.h"

#include <gtest/gtest.h>

namespace tarvik::test {
namespace {

TEST(K7ErrorTextTest, The_Japanese_texts_speak_of_the_service_where_the_English_ones_speak_of_the_server) {
  EXPECT_EQ(K7ErrorText(0, kBuiltInEnglish), L"No Error");
  EXPECT_EQ(K7ErrorText(0, kBuiltInJapanese), L"エラー無し");
  EXPECT_EQ(K7ErrorText(0x1009F005, kBuiltInEnglish), L"Required K7 server is unknown");
  EXPECT_EQ(K7ErrorText(0x1009F005, kBuiltInJapanese), L"指定した K7 Serverは認識（接続）できません");
  EXPECT_EQ(K7ErrorText(0x1009F101, kBuiltInEnglish), L"Cannot connect to K7 Server");
  EXPECT_EQ(K7ErrorText(0x1009F101, kBuiltInJapanese), L"K7 Serviceへの接続に失敗しました");
  EXPECT_EQ(K7ErrorText(0x1009F105, kBuiltInEnglish), L"Cannot stop K7 server, see SystemError");
  EXPECT_EQ(K7ErrorText(0x1009F105, kBuiltInJapanese),
            L"K7 Serviceの停止に失敗しました（エラー詳細はSystemErrorを参照）");
}

TEST(K7ErrorTextTest, Twelve_error_codes_have_a_text_in_both_languages) {
  int texts = 0;
  for (int32_t code = 0x1009EF00; code <= 0x1009F200; ++code) {
    EXPECT_EQ(K7ErrorText(code, kBuiltInEnglish).empty(), K7ErrorText(code, kBuiltInJapanese).empty())
        << code;
    if (!K7ErrorText(code, kBuiltInEnglish).empty()) ++texts;
  }
  EXPECT_EQ(texts, 12);
}

TEST(K7ErrorTextTest, The_language_file_mode_shows_English) {
  EXPECT_EQ(K7ErrorText(0, kLanguageFile), L"No Error");
}

TEST(K7ErrorTextTest, An_unknown_code_has_an_empty_text) {
  for (const int32_t code : {1, -1, 0x1009F006, 0x1009F106})
    EXPECT_EQ(K7ErrorText(code, kBuiltInEnglish), L"") << code;
}

}  // namespace
}  // namespace tarvik::test
