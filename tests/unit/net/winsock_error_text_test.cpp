#include "net/winsock_error_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace tarvik::test {
namespace {

TEST(WinsockErrorText, A_known_code_is_a_Japanese_sentence) {
  const std::pair<int32_t, const wchar_t*> expected[] = {
      {10004, L"呼び出しが取り消された。"},
      {10014, L"32ビットインターネットアドレス指定に誤りがあります。"},
      {10047, L"指定されたプロトコルでは、指定されたアドレスファミリがサポートされていない。"},
      {10093, L"WSAStartup関数を呼び出していないか、失敗しています。"},
      {11004, L"データレコードの型が要求されていない。"},
  };
  for (const auto& [code, text] : expected) EXPECT_EQ(WinsockErrorText(code), text) << code;
}

TEST(WinsockErrorText, A_code_without_a_sentence_is_shown_in_brackets) {
  for (const int32_t code : {10059, 10062, 10063, 10066, -1, std::numeric_limits<int32_t>::min()})
    EXPECT_EQ(WinsockErrorText(code), L"(" + std::to_wstring(code) + L")");
}

TEST(WinsockErrorText, Forty_one_codes_have_a_sentence) {
  int sentences = 0;
  for (int32_t code = 10000; code < 11100; ++code)
    if (WinsockErrorText(code).ends_with(L"。")) ++sentences;
  EXPECT_EQ(sentences, 41);
}

TEST(WinsockErrorText, No_error_has_no_text) { EXPECT_EQ(WinsockErrorText(0), L""); }

}  // namespace
}  // namespace tarvik::test
