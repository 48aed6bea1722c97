#include "bench/nx_connections.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

#include "bench/controller_server.h"

namespace tarvik::bench {
namespace {

constexpr uint32_t kServerAddress = 0x7F000001;

/// A controller on the loopback address, in its own thread.
class RunningController {
 public:
  explicit RunningController(std::string_view scenario)
      : server_(ReadControllerScenario(scenario), {kServerAddress, 0}), thread_([this] {
          while (!ending_) server_.Step(20);
        }) {}
  ~RunningController() {
    ending_ = true;
    thread_.join();
  }

  uint16_t Port() const { return server_.Port(); }

 private:
  ControllerServer server_;
  std::atomic<bool> ending_ = false;
  std::thread thread_;
};

class NxConnectionsTest : public testing::Test {
 protected:
  void SwitchOn(std::string_view scenario) { controller_ = std::make_unique<RunningController>(scenario); }

  int16_t Allocate(const std::string& code = {}, int32_t timeOut = 30) {
    return connections_.Allocate("127.0.0.1", controller_->Port(), code, timeOut, handle_);
  }

  int16_t Ask(Call call, size_t size) {
    Request request;
    request.call = call;
    request.areaType = 9;
    return connections_.Ask(handle_, request, size, body_);
  }

  NxConnections connections_;
  std::unique_ptr<RunningController> controller_;
  uint16_t handle_ = 0;
  std::string body_;
};

TEST_F(NxConnectionsTest, A_connected_handle_can_be_read_and_freed) {
  SwitchOn("options 3\npmc D 0 42");
  ASSERT_EQ(Allocate(), 0);
  EXPECT_NE(handle_, 0);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), 0);
  EXPECT_EQ(body_[0], 3);
  EXPECT_EQ(Ask(Call::PmcRead, 1), 0);
  EXPECT_EQ(body_, "*");
  EXPECT_EQ(connections_.Free(handle_), 0);
}

TEST_F(NxConnectionsTest, A_host_name_is_resolved) {
  SwitchOn("");
  EXPECT_EQ(connections_.Allocate("localhost", controller_->Port(), "", 30, handle_), 0);
  EXPECT_EQ(connections_.Allocate("no host at all", controller_->Port(), "", 30, handle_), kResultNoHost);
}

TEST_F(NxConnectionsTest, Each_handle_is_distinct_and_counted) {
  SwitchOn("");
  ASSERT_EQ(Allocate(), 0);
  const uint16_t first = handle_;
  ASSERT_EQ(Allocate(), 0);
  EXPECT_NE(handle_, first);
  EXPECT_EQ(connections_.Count(), 2U);
  EXPECT_EQ(connections_.Free(first), 0);
  EXPECT_EQ(connections_.Free(first), kResultBadHandle);
  EXPECT_EQ(connections_.Count(), 1U);
}

TEST_F(NxConnectionsTest, A_handle_that_is_not_open_is_rejected) {
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), -8);
  EXPECT_EQ(connections_.Free(7), -8);
}

TEST_F(NxConnectionsTest, At_most_32_handles_can_be_open) {
  SwitchOn("");
  for (int i = 0; i < 32; ++i) ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Allocate(), kResultNoHandle);
}

TEST_F(NxConnectionsTest, A_wrong_access_code_allocates_no_handle) {
  SwitchOn("access_code 1234");
  EXPECT_EQ(Allocate(), kResultAccessCode);
  EXPECT_EQ(Allocate("4321"), kResultAccessCode);
  EXPECT_EQ(handle_, 0);
  EXPECT_EQ(connections_.Count(), 0U);
  EXPECT_EQ(Allocate("1234"), 0);
}

TEST_F(NxConnectionsTest, Connections_beyond_the_limit_are_refused) {
  SwitchOn("connections 2");
  EXPECT_EQ(Allocate(), 0);
  EXPECT_EQ(Allocate(), 0);
  EXPECT_EQ(Allocate(), kResultNoConnection);
}

TEST_F(NxConnectionsTest, After_a_time_out_the_connection_is_lost_and_the_handle_can_only_be_freed) {
  SwitchOn("silent sysinfo");
  ASSERT_EQ(Allocate({}, 1), 0);
  EXPECT_EQ(Ask(Call::SystemInfo, kSystemInformationBodySize), kResultTimeOut);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), kResultConnectionLost);
  EXPECT_EQ(connections_.Free(handle_), 0);
}

TEST_F(NxConnectionsTest, An_answer_after_the_time_out_is_a_time_out) {
  SwitchOn("delay connect 600000");
  EXPECT_EQ(Allocate({}, 1), kResultTimeOut);
}

TEST_F(NxConnectionsTest, A_delayed_answer_does_not_delay_other_connections) {
  SwitchOn("delay sysinfo 600000");
  ASSERT_EQ(Allocate({}, 1), 0);
  EXPECT_EQ(Ask(Call::SystemInfo, kSystemInformationBodySize), kResultTimeOut);
  ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), 0);
}

TEST_F(NxConnectionsTest, A_connection_closed_during_the_call_is_lost) {
  SwitchOn("drop options");
  ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), kResultConnectionLost);
}

TEST_F(NxConnectionsTest, Switching_the_controller_off_loses_the_connection) {
  SwitchOn("");
  ASSERT_EQ(Allocate(), 0);
  controller_.reset();
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), kResultConnectionLost);
}

TEST_F(NxConnectionsTest, Rubbish_or_a_body_of_the_wrong_size_is_a_bad_reply) {
  SwitchOn("rubbish options");
  ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), kResultBadReply);
  ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Ask(Call::SystemInfo, kSystemInformationBodySize + 1), kResultBadReply);
}

TEST_F(NxConnectionsTest, After_an_error_code_the_handle_is_still_usable) {
  SwitchOn("result options 5 first 1");
  ASSERT_EQ(Allocate(), 0);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), 5);
  EXPECT_EQ(Ask(Call::Options, kOptionsBodySize), 0);
}

TEST(EffectiveTimeOut, Is_bounded_and_never_0) {
  EXPECT_EQ(EffectiveTimeOut(0), 10);
  EXPECT_EQ(EffectiveTimeOut(-5), 10);
  EXPECT_EQ(EffectiveTimeOut(3), 3);
  EXPECT_EQ(EffectiveTimeOut(32767), 3600);
}

}  // namespace
}  // namespace tarvik::bench
