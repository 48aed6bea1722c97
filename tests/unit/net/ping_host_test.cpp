#include "net/ping_host.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

TEST(EvaluatePingResponse, A_status_has_a_short_English_text) {
  EXPECT_EQ(EvaluatePingResponse(11001), L"Buffer Too Small");
  EXPECT_EQ(EvaluatePingResponse(11003), L"Destination Host Unreachable");
  EXPECT_EQ(EvaluatePingResponse(11010), L"Request Timed Out");
  EXPECT_EQ(EvaluatePingResponse(11014), L"TimeToLive Expired Reassembly");
  EXPECT_EQ(EvaluatePingResponse(11032), L"Negotiating IPSEC");
  EXPECT_EQ(EvaluatePingResponse(11050), L"General Failure");
}

TEST(EvaluatePingResponse, Twenty_statuses_have_a_text) {
  int texts = 0;
  for (uint32_t status = 11000; status <= 11100; ++status)
    if (EvaluatePingResponse(status) != L"Unknown Response") ++texts;
  EXPECT_EQ(texts, 20);
}

TEST(EvaluatePingResponse, Status_0_has_no_text) { EXPECT_EQ(EvaluatePingResponse(0), L""); }

TEST(EvaluatePingResponse, A_status_outside_the_table_is_an_unknown_response) {
  for (const uint32_t status : {1u, 11000u, 11019u, 11031u, 11033u, 11049u, 11051u, 0xFFFFFFFFu})
    EXPECT_EQ(EvaluatePingResponse(status), L"Unknown Response") << status;
}

TEST(IcmpLibraryTest, The_librarys_failure_value_becomes_0) {
  EXPECT_EQ(IcmpLibrary::CreatedHandle(-1), 0);
  EXPECT_EQ(IcmpLibrary::CreatedHandle(0), 0);
  EXPECT_EQ(IcmpLibrary::CreatedHandle(0x1CEB00DA), 0x1CEB00DA);
}

struct PingHostTest : testing::Test, FakePc {
  bool Ping(const std::wstring& host, int32_t count) {
    return PingHost(context, libraries, host, count, series);
  }
  report::EchoSeries series;
};

TEST_F(PingHostTest, A_reply_is_one_line_with_bytes_time_and_TTL) {
  icmp.script = {FakeIcmp::Reply("192.168.1.10", 0, 17, 128)};
  EXPECT_TRUE(Ping(L"192.168.1.10", 1));
  EXPECT_EQ(results.Lines(), Lines{L"0001 Reply From 192.168.1.10: bytes=32 time=17ms TTL=128"});
}

TEST_F(PingHostTest, The_line_names_the_replying_host) {
  icmp.script = {FakeIcmp::Reply("10.0.0.1")};
  EXPECT_TRUE(Ping(L"192.168.1.10", 1));
  EXPECT_EQ(results.Lines(), Lines{L"0001 Reply From 10.0.0.1: bytes=32 time=1ms TTL=64"});
}

TEST_F(PingHostTest, An_echo_has_32_spaces_and_no_options_and_waits_100_ms) {
  Ping(L"192.168.1.10", 1);
  ASSERT_EQ(icmp.requests.size(), 1u);
  const FakeIcmp::Request& request = icmp.requests[0];
  EXPECT_EQ(request.handle, 0x1CEB00DA);
  EXPECT_EQ(request.address, AddressNumber("192.168.1.10"));
  EXPECT_EQ(request.data, std::string(32, ' '));
  EXPECT_FALSE(request.withOptions);
  EXPECT_EQ(request.replySize, 278u);
  EXPECT_EQ(request.timeout, 100u);
}

TEST_F(PingHostTest, A_count_of_zero_sends_nothing_and_fails) {
  icmp.AddHost("192.168.1.10");
  EXPECT_FALSE(Ping(L"192.168.1.10", 0));
  EXPECT_TRUE(icmp.requests.empty());
  EXPECT_TRUE(results.Lines().empty());
  EXPECT_EQ(pump.now, 0u);
}

TEST_F(PingHostTest, A_negative_count_sends_nothing) {
  icmp.AddHost("192.168.1.10");
  EXPECT_FALSE(Ping(L"192.168.1.10", -1));
  EXPECT_TRUE(icmp.requests.empty());
}

TEST_F(PingHostTest, A_host_that_does_not_reply_fails_with_the_calls_error_code) {
  icmp.script = {FakeIcmp::TimedOut(), FakeIcmp::TimedOut(6)};
  EXPECT_FALSE(Ping(L"192.168.1.10", 2));
  EXPECT_EQ(results.Lines(), (Lines{L"ICMP_Error:11010", L"ICMP_Error:6"}));
}

TEST_F(PingHostTest, One_reply_to_many_echoes_is_enough) {
  icmp.script = {FakeIcmp::TimedOut(), FakeIcmp::Reply("192.168.1.10"), FakeIcmp::TimedOut()};
  EXPECT_TRUE(Ping(L"192.168.1.10", 3));
  EXPECT_EQ(results.Lines(),
            (Lines{L"ICMP_Error:11010", L"0002 Reply From 192.168.1.10: bytes=32 time=1ms TTL=64",
                   L"ICMP_Error:11010"}));
}

TEST_F(PingHostTest, A_reply_with_a_status_names_the_target_and_counts) {
  icmp.script = {FakeIcmp::Reply("10.0.0.1", 11003)};
  EXPECT_TRUE(Ping(L"192.168.1.10", 1));
  EXPECT_EQ(results.Lines(), Lines{L"0001 Reply From 192.168.1.10: Destination Host Unreachable"});
}

TEST_F(PingHostTest, A_reply_with_an_unknown_status_is_an_unknown_response) {
  icmp.script = {FakeIcmp::Reply("10.0.0.1", 11019)};
  EXPECT_TRUE(Ping(L"192.168.1.10", 1));
  EXPECT_EQ(results.Lines(), Lines{L"0001 Reply From 192.168.1.10: Unknown Response"});
}

TEST_F(PingHostTest, The_sequence_number_has_at_least_four_digits) {
  icmp.AddHost("192.168.1.10");
  EXPECT_TRUE(Ping(L"192.168.1.10", 10001));
  // The list was cleared after 1,001 lines and shows only the later ones.
  EXPECT_EQ(results.Lines().back().substr(0, 17), L"10001 Reply From ");
  EXPECT_EQ(results.Lines()[results.Lines().size() - 3].substr(0, 16), L"9999 Reply From ");
}

TEST_F(PingHostTest, A_name_is_looked_up_and_its_first_address_pinged) {
  winsock.AddHost("cnc1", {"192.168.1.100", "10.0.0.7"});
  Ping(L"cnc1", 1);
  EXPECT_EQ(icmp.requests.at(0).address, AddressNumber("192.168.1.100"));
}

TEST_F(PingHostTest, A_host_that_cannot_be_resolved_replaces_the_list_with_one_line) {
  results.AddToList(L"earlier");
  EXPECT_FALSE(Ping(L"nobody", 4));
  EXPECT_EQ(results.Lines(), Lines{L"Bad IP address (Get Host Name) nobody"});
  EXPECT_TRUE(icmp.requests.empty());
  EXPECT_EQ(pump.now, 0u);
}

TEST_F(PingHostTest, Echoes_are_one_second_apart_in_four_pauses_that_let_events_run) {
  icmp.AddHost("192.168.1.10");
  EXPECT_TRUE(Ping(L"192.168.1.10", 3));
  EXPECT_EQ(pump.now, 3000u);
  EXPECT_EQ(pump.sleeps, std::vector<uint32_t>(12, 250));
  EXPECT_EQ(pump.eventRounds, 12);
}

TEST_F(PingHostTest, A_stop_before_the_first_pause_ends_it_after_one_echo_without_a_pause) {
  icmp.AddHost("192.168.1.10");
  pump.stop = true;
  EXPECT_TRUE(Ping(L"192.168.1.10", 1000));
  EXPECT_EQ(icmp.requests.size(), 1u);
  EXPECT_TRUE(pump.sleeps.empty());
}

TEST_F(PingHostTest, A_stop_from_the_pending_events_takes_effect_before_the_sleep) {
  icmp.AddHost("192.168.1.10");
  pump.onEvents = [this] { pump.stop = pump.eventRounds >= 6; };
  EXPECT_TRUE(Ping(L"192.168.1.10", 1000));
  EXPECT_EQ(icmp.requests.size(), 2u);
  EXPECT_EQ(pump.sleeps.size(), 5u);
}

TEST_F(PingHostTest, A_stop_before_any_reply_fails) {
  pump.stopAt = 1300;
  EXPECT_FALSE(Ping(L"192.168.1.10", 1000));
  EXPECT_EQ(icmp.requests.size(), 2u);
  EXPECT_EQ(pump.now, 1300u);
}

TEST_F(PingHostTest, An_exception_shows_the_last_socket_error_and_fails) {
  icmp.AddHost("192.168.1.10");
  winsock.lastError = 10050;
  view.refusing = true;
  EXPECT_FALSE(Ping(L"192.168.1.10", 1));
  EXPECT_EQ(boxes.Texts(), Lines{L"ネットワークがダウンしている。"});
}

TEST_F(PingHostTest, An_exception_after_a_reply_still_fails) {
  icmp.AddHost("192.168.1.10");
  pump.onEvents = [] { throw RuntimeError(L"broken"); };
  EXPECT_FALSE(Ping(L"192.168.1.10", 1));
}

TEST_F(PingHostTest, An_exception_without_a_socket_error_shows_nothing) {
  icmp.AddHost("192.168.1.10");
  view.refusing = true;
  EXPECT_FALSE(Ping(L"192.168.1.10", 1));
  EXPECT_TRUE(boxes.boxes.empty());
}

}  // namespace
}  // namespace tarvik::test
