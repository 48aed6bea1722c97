#include <gtest/gtest.h>

#include <algorithm>

#include "ftp/ftp_client.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_wininet.h"

namespace tarvik::test {
namespace {

using Sizes = std::vector<uint32_t>;

constexpr uint32_t kMaxReplyBytes = 16 * 1024 * 1024;

struct FtpReply : testing::Test {
  FtpReply() {
    client.Connect(L"192.168.1.100", L"", L"");
    wininet.bufferSizes.clear();
  }

  FakeWininet wininet;
  FakeCodePage codePage;
  clsFtpClient client{wininet, codePage};
};

TEST_F(FtpReply, A_reply_is_converted_from_the_code_page) {
  wininet.replies = {codePage.ToAnsi(L"220 機械 ｷ")};
  EXPECT_EQ(client.Response(), L"220 機械 ｷ");
}

TEST_F(FtpReply, No_reply_is_an_empty_text) { EXPECT_EQ(client.Response(), L""); }

TEST_F(FtpReply, The_first_buffer_has_1024_bytes) {
  wininet.replies = {std::string(1023, 'r')};
  EXPECT_EQ(client.Response().size(), 1023U);
  EXPECT_EQ(wininet.bufferSizes, Sizes{1024});
}

TEST_F(FtpReply, The_buffer_grows_to_the_requested_size) {
  wininet.replies = {std::string(5'000'000, 'r')};
  EXPECT_EQ(client.Response().size(), 5'000'000U);
  EXPECT_EQ(wininet.bufferSizes, (Sizes{1024, 5'000'001}));
}

TEST_F(FtpReply, The_buffer_doubles_when_the_library_requests_no_size) {
  wininet.onResponse = [](char* buffer, uint32_t* length, uint32_t& lastError) {
    lastError = FakeWininet::kInsufficientBuffer;
    if (*length < 4096) return 0;
    std::fill_n(buffer, 4096, 'r');
    return 1;
  };
  EXPECT_EQ(client.Response().size(), 4096U);
  EXPECT_EQ(wininet.bufferSizes, (Sizes{1024, 2048, 4096}));
}

TEST_F(FtpReply, The_buffer_grows_to_16_MiB_at_most) {
  wininet.onResponse = [](char*, uint32_t* length, uint32_t& lastError) {
    lastError = FakeWininet::kInsufficientBuffer;
    *length = ~0U;
    return 0;
  };
  EXPECT_EQ(client.Response(), L"");
  EXPECT_EQ(wininet.bufferSizes, (Sizes{1024, kMaxReplyBytes}));
}

TEST_F(FtpReply, Any_other_failure_is_an_empty_text_at_once) {
  wininet.failing = {"InternetGetLastResponseInfoA"};
  EXPECT_EQ(client.Response(), L"");
  EXPECT_EQ(wininet.bufferSizes, Sizes{1024});
}

TEST_F(FtpReply, A_reply_without_a_NUL_ends_with_its_length) {
  wininet.onResponse = [](char* buffer, uint32_t* length, uint32_t&) {
    std::fill_n(buffer, *length, 'r');
    *length = 10;
    return 1;
  };
  EXPECT_EQ(client.Response(), std::wstring(10, L'r'));
}

TEST_F(FtpReply, A_length_beyond_the_buffer_is_ignored) {
  wininet.onResponse = [](char* buffer, uint32_t* length, uint32_t&) {
    std::fill_n(buffer, *length, 'r');
    *length = ~0U;
    return 1;
  };
  EXPECT_EQ(client.Response(), std::wstring(1024, L'r'));
}

TEST_F(FtpReply, A_full_buffer_is_followed_by_a_NUL_for_the_library) {
  wininet.onResponse = [](char* buffer, uint32_t* length, uint32_t&) {
    std::fill_n(buffer, *length, 'r');
    *length = static_cast<uint32_t>(std::strlen(buffer));
    return 1;
  };
  EXPECT_EQ(client.Response().size(), 1024U);
}

TEST_F(FtpReply, A_reply_ends_at_its_first_NUL) {
  wininet.replies = {std::string("220 ok\0 garbage", 15)};
  EXPECT_EQ(client.Response(), L"220 ok");
}

TEST_F(FtpReply, After_a_connect_without_a_host_the_earlier_servers_reply_is_not_returned) {
  wininet.replies = {"220 ready"};
  EXPECT_EQ(client.Response(), L"220 ready");
  EXPECT_FALSE(client.Connect(L"", L"", L""));
  EXPECT_EQ(client.Response(), L"");
}

}  // namespace
}  // namespace tarvik::test
