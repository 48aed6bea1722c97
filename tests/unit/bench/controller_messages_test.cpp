#include "bench/controller_messages.h"

#include <gtest/gtest.h>

namespace tarvik::bench {
namespace {

std::string PayloadOf(std::string message) {
  bool broken = false;
  return TakePayload(message, broken).value();
}

TEST(ControllerMessages, A_parsed_request_equals_the_one_sent) {
  Request request{Call::PmcRead, {}, 9, 0, -2, 32767};
  const Request read = ParseRequest(PayloadOf(RequestMessage(request))).value();
  EXPECT_EQ(read.call, Call::PmcRead);
  EXPECT_EQ(read.areaType, 9);
  EXPECT_EQ(read.first, -2);
  EXPECT_EQ(read.last, 32767);
  request = {Call::Connect, "12345678", 0, 0, 0, 0};
  EXPECT_EQ(ParseRequest(PayloadOf(RequestMessage(request))).value().accessCode, "12345678");
}

TEST(ControllerMessages, An_access_code_is_truncated_to_255_bytes) {
  const Request request{Call::Connect, std::string(300, '1'), 0, 0, 0, 0};
  EXPECT_EQ(ParseRequest(PayloadOf(RequestMessage(request))).value().accessCode.size(), 255U);
}

TEST(ControllerMessages, An_incomplete_message_is_not_broken) {
  const std::string whole = ReplyMessage({0, "body"});
  bool broken = false;
  for (size_t length = 0; length < whole.size(); ++length) {
    std::string received = whole.substr(0, length);
    EXPECT_EQ(TakePayload(received, broken), std::nullopt);
    EXPECT_FALSE(broken);
  }
}

TEST(ControllerMessages, Only_the_first_of_two_messages_is_removed) {
  std::string received = ReplyMessage({1, {}}) + ReplyMessage({2, {}});
  bool broken = false;
  EXPECT_EQ(ParseReply(TakePayload(received, broken).value()).value().result, 1);
  EXPECT_EQ(received, ReplyMessage({2, {}}));
}

TEST(ControllerMessages, Foreign_bytes_and_oversized_lengths_are_broken) {
  bool broken = false;
  std::string received = "GET / HTTP/1.0";
  EXPECT_EQ(TakePayload(received, broken), std::nullopt);
  EXPECT_TRUE(broken);
  received = "TB\xFF\xFF";
  EXPECT_EQ(TakePayload(received, broken), std::nullopt);
  EXPECT_TRUE(broken);
}

TEST(ControllerMessages, A_payload_of_the_wrong_length_is_rejected) {
  const std::string payload = PayloadOf(RequestMessage({Call::PmcRead, {}, 1, 2, 3, 4}));
  EXPECT_EQ(ParseRequest(""), std::nullopt);
  EXPECT_EQ(ParseRequest(payload.substr(0, payload.size() - 1)), std::nullopt);
  EXPECT_EQ(ParseRequest(payload + "x"), std::nullopt);
  EXPECT_EQ(ParseRequest("\x05"), std::nullopt);
  EXPECT_EQ(ParseRequest(std::string(1, '\0') + std::string(256, '1')), std::nullopt);
  EXPECT_EQ(ParseReply("\x01"), std::nullopt);
}

TEST(ControllerMessages, The_system_information_is_padded_to_18_bytes) {
  SystemInformation information{0x0102, 0x0304, "3", "M", "G3", "1", "12345"};
  EXPECT_EQ(SystemInformationBody(information), std::string("\x02\x01\x04\x03", 4) + "3 M G3  1   12");
  EXPECT_EQ(SystemInformationBody(information).size(), kSystemInformationBodySize);
}

}  // namespace
}  // namespace tarvik::bench
