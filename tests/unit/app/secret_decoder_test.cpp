#include <gtest/gtest.h>

#include "bench/txcodec.h"
#include "tests/fakes/fake_closed_libraries.h"
#include "tests/fakes/fake_code_page.h"

namespace tarvik::test {
namespace {

class SecretDecoderTest : public testing::Test {
 protected:
  std::optional<std::wstring> Decode(const std::wstring& encoded) {
    return DecodeSecret(encoded, codec, codePage);
  }

  FakeTxCodec codec;
  FakeCodePage codePage;
};

TEST_F(SecretDecoderTest, The_input_is_a_prefix_and_the_secret_padded_with_spaces) {
  Decode(L"abc");
  EXPECT_EQ(codec.input.size(), 128U);
  EXPECT_EQ(codec.input[0], TXCODEC_PREFIX);
  EXPECT_EQ(codec.input.substr(1), "abc" + std::string(124, ' '));
}

TEST_F(SecretDecoderTest, A_secret_longer_than_127_bytes_is_truncated) {
  Decode(std::wstring(500, L'x'));
  EXPECT_EQ(codec.input.substr(1), std::string(127, 'x'));
}

TEST_F(SecretDecoderTest, Trailing_spaces_of_the_output_are_removed) {
  codec.output = "12 3";
  EXPECT_EQ(Decode(L"x"), L"12 3");
}

TEST_F(SecretDecoderTest, The_output_ends_at_its_first_NUL) {
  codec.output = std::string("12 \0junk", 8);
  EXPECT_EQ(Decode(L"x"), L"12");
}

TEST_F(SecretDecoderTest, Output_without_a_NUL_fills_the_whole_field) {
  codec.output = std::string(64, '9');
  EXPECT_EQ(Decode(L"x"), std::wstring(64, L'9'));
}

TEST_F(SecretDecoderTest, Any_result_except_0_is_a_failure) {
  codec.result = -1;
  EXPECT_EQ(Decode(L"x"), std::nullopt);
}

TEST_F(SecretDecoderTest, A_missing_library_is_a_failure) {
  codec.missing = true;
  EXPECT_EQ(Decode(L"x"), std::nullopt);
}

}  // namespace
}  // namespace tarvik::test
