#include "net/port_look.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {
namespace {

using report::PortAnswer;

constexpr uint16_t kPort = 8193;

struct PortLookTest : testing::Test {
  ~PortLookTest() override {
    EXPECT_TRUE(winsock.openSockets.empty()) << "the socket was not closed";
    EXPECT_EQ(winsock.startups, winsock.cleanups + failedStartups);
    EXPECT_EQ(winsock.blockingSelects, 0);
  }

  PortLook Ask() { return AskPort(winsock, pump, AddressNumber("192.168.1.100"), kPort); }

  FakeWinsock winsock;
  FakePump pump;
  int failedStartups = 0;
};

TEST_F(PortLookTest, A_port_that_accepts_is_open) {
  winsock.ports[kPort].pollsUntilEnd = 2;
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Open);
  EXPECT_EQ(look.error, 0);
  ASSERT_EQ(winsock.connects.size(), 1u);
  EXPECT_EQ(winsock.connects[0].address, AddressNumber("192.168.1.100"));
  EXPECT_EQ(winsock.connects[0].port, kPort);
  EXPECT_TRUE(winsock.connects[0].nonBlocking);
}

TEST_F(PortLookTest, A_connection_that_succeeds_at_once_is_open) {
  winsock.ports[kPort].connectError = 0;
  EXPECT_EQ(Ask().answer, PortAnswer::Open);
}

TEST_F(PortLookTest, A_port_that_rejects_is_refused) {
  // Windows tries three times before it reports this, for a second in all.
  winsock.ports[kPort] = {Winsock::kConnectionRefused, 20};
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Refused);
  EXPECT_EQ(look.error, 10061);
  EXPECT_LT(pump.now, 1500u);
}

TEST_F(PortLookTest, A_port_that_does_not_answer_within_three_seconds_is_silent) {
  EXPECT_EQ(Ask().answer, PortAnswer::Silent);
  EXPECT_EQ(pump.now, 3000u);
}

TEST_F(PortLookTest, A_time_out_of_the_library_is_silent_too) {
  winsock.ports[kPort] = {Winsock::kTimedOut, 1};
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Silent);
  EXPECT_EQ(look.error, 10060);
}

TEST_F(PortLookTest, Any_other_error_is_unknown_with_its_number) {
  winsock.ports[kPort] = {10065, 1};
  EXPECT_EQ(Ask().answer, PortAnswer::Unknown);
  EXPECT_EQ(Ask().error, 10065);
  winsock.ports[kPort] = {0, 0, 10051};
  EXPECT_EQ(Ask().answer, PortAnswer::Unknown);
  EXPECT_EQ(Ask().error, 10051);
}

TEST_F(PortLookTest, A_stop_request_ends_the_attempt) {
  pump.stopAt = 700;
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Unknown);
  EXPECT_EQ(look.error, 0);
  EXPECT_LE(pump.now, 750u);
}

TEST_F(PortLookTest, After_a_stop_request_nothing_is_asked) {
  pump.stop = true;
  EXPECT_EQ(Ask().answer, PortAnswer::Unknown);
  EXPECT_EQ(winsock.startups, 0);
}

TEST_F(PortLookTest, Events_are_handled_while_the_port_is_silent) {
  int events = 0;
  pump.onEvents = [&events] { ++events; };
  Ask();
  EXPECT_GE(events, 60);
}

TEST_F(PortLookTest, What_is_not_an_address_is_not_asked) {
  for (const uint32_t address : {0u, 0xFFFFFFFFu})
    EXPECT_EQ(AskPort(winsock, pump, address, kPort).answer, PortAnswer::Unknown);
  EXPECT_TRUE(winsock.connects.empty());
}

TEST_F(PortLookTest, Without_a_session_the_answer_is_unknown) {
  winsock.startupResult = 10091;
  failedStartups = 1;
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Unknown);
  EXPECT_EQ(look.error, 10091);
  EXPECT_TRUE(winsock.connects.empty());
}

TEST_F(PortLookTest, Without_a_socket_the_answer_is_unknown) {
  winsock.socketOpens = false;
  winsock.lastError = 10024;
  const PortLook look = Ask();
  EXPECT_EQ(look.answer, PortAnswer::Unknown);
  EXPECT_EQ(look.error, 10024);
}

}  // namespace
}  // namespace tarvik::test
