#include "bench/k7_server.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <sstream>
#include <thread>

#include "bench/k7_handles.h"
#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

constexpr uint32_t kLoopback = 0x7F000001;

std::string ScenarioErrorOf(std::string_view text) {
  try {
    ReadK7Scenario(text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "none";
}

K7Reply Check(K7Server& server, const std::string& address, int32_t stateA = 0, int32_t stateB = 0) {
  const K7Request request{K7Request::Kind::Check, 7, stateA, stateB, address};
  return ParseK7Reply(server.Answer(K7Datagram(request))).value();
}

TEST(K7Scenario, In_an_empty_scenario_every_unit_is_live) {
  const K7Scenario scenario = ReadK7Scenario("");
  EXPECT_EQ(scenario.port, 8300);
  EXPECT_EQ(scenario.others, K7Verdict::Live);
  EXPECT_EQ(scenario.stop, K7Scenario::Stop::Obeyed);
  EXPECT_FALSE(scenario.silent || scenario.neverStarts);
}

TEST(K7Scenario, The_bench_sample_can_be_read) {
  std::ostringstream text;
  text << std::ifstream(TARVIK_SOURCE_FOLDER "/bench/scenarios/k7server.scenario").rdbuf();
  const K7Scenario scenario = ReadK7Scenario(text.str());
  EXPECT_EQ(scenario.units.at("192.168.1.101").verdict, K7Verdict::Dead);
  EXPECT_TRUE(scenario.units.at("192.168.1.102").reboots);
  EXPECT_EQ(scenario.others, K7Verdict::Unknown);
  EXPECT_EQ(scenario.startPendingMs, 3000);
  EXPECT_EQ(scenario.stopPendingMs, 1000);
}

TEST(K7Scenario, The_service_can_misbehave) {
  const K7Scenario scenario = ReadK7Scenario("start_takes forever\nstop refused\nsilent\nport 0");
  EXPECT_TRUE(scenario.neverStarts && scenario.silent);
  EXPECT_EQ(scenario.stop, K7Scenario::Stop::Refused);
  EXPECT_EQ(scenario.port, 0);
  EXPECT_EQ(ReadK7Scenario("stop ignored").stop, K7Scenario::Stop::Ignored);
}

TEST(K7Scenario, Invalid_lines_are_rejected) {
  EXPECT_EQ(ScenarioErrorOf("\nunits a live"), "line 2: units: unknown keyword");
  for (const char* text :
       {"unit", "unit a", "unit a alive", "unit a live 1", "others", "others reboots", "port 65536",
        "port -1", "silent 1", "start_takes", "start_takes long", "stop_takes -1", "stop", "stop never"}) {
    EXPECT_NE(ScenarioErrorOf(text), "none") << text;
  }
}

TEST(K7Server, Reports_the_state_of_each_unit) {
  K7Server server(ReadK7Scenario("unit a live\nunit b dead\nothers unknown"));
  EXPECT_EQ(Check(server, "a").verdict, K7Verdict::Live);
  EXPECT_EQ(Check(server, "b").verdict, K7Verdict::Dead);
  EXPECT_EQ(Check(server, "c").verdict, K7Verdict::Unknown);
}

TEST(K7Server, Counts_checks_and_restarts) {
  K7Server server(ReadK7Scenario("unit a reboots\nunit b live"));
  EXPECT_EQ(Check(server, "a", 0, 0).stateA, 1);
  const K7Reply second = Check(server, "a", 1, 5);
  EXPECT_EQ(second.stateA, 2);
  EXPECT_EQ(second.stateB, 6);
  EXPECT_EQ(second.extra, 1);
  EXPECT_EQ(Check(server, "b", 0, 0).extra, 0);
  EXPECT_EQ(Check(server, "b", 1, INT32_MAX).stateB, INT32_MIN);
}

TEST(K7Server, Ignores_invalid_requests_and_every_request_when_silent) {
  K7Server server{K7Scenario()};
  EXPECT_EQ(server.Answer(""), "");
  EXPECT_EQ(server.Answer("rubbish"), "");
  EXPECT_EQ(server.Answer(K7Datagram(K7Reply{})), "");
  K7Server silent(ReadK7Scenario("silent"));
  EXPECT_EQ(silent.Answer(K7Datagram(K7Request{})), "");
}

TEST(K7Messages, A_datagram_of_the_wrong_length_or_kind_is_rejected) {
  const std::string request = K7Datagram(K7Request{K7Request::Kind::Check, 1, 2, 3, "a"});
  EXPECT_EQ(ParseK7Request(request).value().address, "a");
  EXPECT_EQ(ParseK7Request(request.substr(0, 16)), std::nullopt);
  EXPECT_EQ(ParseK7Request(request + std::string(255, 'a')), std::nullopt);
  std::string kind = request;
  kind[8] = 2;
  EXPECT_EQ(ParseK7Request(kind), std::nullopt);
  const std::string reply = K7Datagram(K7Reply{1, K7Verdict::Live, 2, 3, 4});
  EXPECT_EQ(ParseK7Reply(reply).value().extra, 4);
  EXPECT_EQ(ParseK7Reply(reply + "x"), std::nullopt);
  EXPECT_EQ(ParseK7Reply(reply.substr(0, reply.size() - 1)), std::nullopt);
  std::string verdict = reply;
  verdict[8] = 3;
  EXPECT_EQ(ParseK7Reply(verdict), std::nullopt);
}

/// A K7 server on the loopback address, in its own thread.
class RunningK7Server {
 public:
  explicit RunningK7Server(std::string_view scenario)
      : server_(ReadK7Scenario(scenario)), thread_([this] {
          while (!ending_) ServeK7(server_, socket_, 20);
        }) {}
  ~RunningK7Server() {
    ending_ = true;
    thread_.join();
  }

  uint16_t Port() const { return socket_.Port(); }

 private:
  K7Server server_;
  Socket socket_ = Socket::BindUdp({kLoopback, 0});
  std::atomic<bool> ending_ = false;
  std::thread thread_;
};

class K7HandlesTest : public testing::Test {
 protected:
  K7HandlesTest() { EXPECT_EQ(handles_.Allocate(handle_), K7Error::None); }

  K7Error Connect(const RunningK7Server& server) {
    return handles_.Connect(handle_, "127.0.0.1", server.Port());
  }
  K7Error CheckUnit(const std::string& address) { return handles_.Check(handle_, address, 0, 0, reply_); }

  K7Handles handles_{300};
  int32_t handle_ = 0;
  K7Reply reply_;
};

TEST_F(K7HandlesTest, A_connected_handle_checks_units_until_it_is_freed) {
  const RunningK7Server server("unit a live\nunit b dead\nothers unknown");
  ASSERT_EQ(Connect(server), K7Error::None);
  EXPECT_EQ(CheckUnit("a"), K7Error::None);
  EXPECT_EQ(reply_.verdict, K7Verdict::Live);
  EXPECT_EQ(CheckUnit("b"), K7Error::None);
  EXPECT_EQ(reply_.verdict, K7Verdict::Dead);
  EXPECT_EQ(CheckUnit("c"), K7Error::UnitNotRecognized);
  EXPECT_EQ(handles_.Free(handle_), K7Error::None);
  EXPECT_EQ(handles_.Free(handle_), K7Error::InvalidHandle);
  EXPECT_EQ(handles_.Count(), 0U);
}

TEST_F(K7HandlesTest, Checking_without_a_connection_fails) {
  EXPECT_EQ(CheckUnit("a"), K7Error::NotConnected);
}

TEST_F(K7HandlesTest, Connecting_fails_when_the_server_is_silent_off_or_unknown) {
  const RunningK7Server silent("silent");
  EXPECT_EQ(Connect(silent), K7Error::CannotConnect);
  EXPECT_EQ(handles_.Connect(handle_, "127.0.0.1", 1), K7Error::CannotConnect);
  EXPECT_EQ(handles_.Connect(handle_, "no host at all", 1), K7Error::ServerUnknown);
}

TEST_F(K7HandlesTest, At_most_32_handles_can_be_open) {
  int32_t handle = 0;
  for (int i = 1; i < 32; ++i) ASSERT_EQ(handles_.Allocate(handle), K7Error::None);
  EXPECT_EQ(handles_.Allocate(handle), K7Error::NoEmptyHandle);
}

}  // namespace
}  // namespace tarvik::bench
