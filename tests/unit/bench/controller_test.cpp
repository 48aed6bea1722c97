#include "bench/controller.h"

#include <gtest/gtest.h>

namespace tarvik::bench {
namespace {

class ControllerTest : public testing::Test {
 protected:
  void SwitchOn(std::string_view scenario) { controller_.emplace(ReadControllerScenario(scenario)); }

  ControllerAction Send(const Request& request, int64_t now = 0) {
    std::string message = RequestMessage(request);
    bool broken = false;
    return controller_->Answer(session_, TakePayload(message, broken).value(), now);
  }

  Reply Ask(const Request& request, int64_t now = 0) {
    std::string bytes = Send(request, now).bytes;
    bool broken = false;
    return ParseReply(TakePayload(bytes, broken).value()).value();
  }

  Reply Connect(const std::string& code = {}) { return Ask({Call::Connect, code, 0, 0, 0, 0}); }

  void SwitchOnAndConnect(std::string_view scenario) {
    SwitchOn(scenario);
    EXPECT_EQ(Connect().result, 0);
  }

  Reply ReadD(int16_t first, int16_t last, int64_t now = 0) {
    return Ask({Call::PmcRead, {}, 9, 0, first, last}, now);
  }

  int16_t FaultOf(const Request& request) {
    EXPECT_EQ(Ask(request).result, kResultPmc);
    return session_.detail.code;
  }

  std::optional<Controller> controller_;
  ControllerSession session_;
};

TEST_F(ControllerTest, Answers_options_and_system_information) {
  SwitchOnAndConnect("options 0x41\nmodel_type GL");
  EXPECT_EQ(Ask({Call::Options, {}, 0, 0, 0, 0}).body, std::string("\x41\0\0\0", 4));
  EXPECT_EQ(Ask({Call::SystemInfo, {}, 0, 0, 0, 0}).body.substr(4, 2), "GL");
}

TEST_F(ControllerTest, Accepts_any_access_code_when_it_requires_none) {
  SwitchOn("");
  EXPECT_EQ(Connect("1").result, 0);
}

TEST_F(ControllerTest, Rejects_connections_until_the_access_code_is_right) {
  SwitchOn("access_code 1234");
  EXPECT_EQ(Connect().result, 7);
  EXPECT_EQ(Connect("0").result, 7);
  EXPECT_EQ(Connect("12345").result, 7);
  EXPECT_EQ(Connect("1234").result, 0);
}

TEST_F(ControllerTest, Ends_a_connection_that_sends_a_request_before_connecting) {
  SwitchOn("access_code 1234");
  EXPECT_TRUE(Send({Call::Options, {}, 0, 0, 0, 0}).disconnect);
  Connect("wrong");
  EXPECT_TRUE(Send({Call::Options, {}, 0, 0, 0, 0}).disconnect);
}

TEST_F(ControllerTest, Ends_a_connection_that_sends_an_invalid_request) {
  SwitchOnAndConnect("");
  const ControllerAction action = controller_->Answer(session_, "rubbish", 0);
  EXPECT_TRUE(action.disconnect);
  EXPECT_EQ(action.bytes, "");
}

TEST_F(ControllerTest, Returns_error_codes_on_demand) {
  SwitchOnAndConnect("result options 5\nresult sysinfo -1 first 2\nresult pmc 3 every 3");
  std::vector<int16_t> options, information, pmc;
  for (int i = 0; i < 4; ++i) {
    options.push_back(Ask({Call::Options, {}, 0, 0, 0, 0}).result);
    information.push_back(Ask({Call::SystemInfo, {}, 0, 0, 0, 0}).result);
    pmc.push_back(ReadD(0, 0).result);
  }
  EXPECT_EQ(options, (std::vector<int16_t>{5, 5, 5, 5}));
  EXPECT_EQ(information, (std::vector<int16_t>{-1, -1, 0, 0}));
  EXPECT_EQ(pmc, (std::vector<int16_t>{0, 0, 3, 0}));
}

TEST_F(ControllerTest, An_error_has_no_body) {
  SwitchOnAndConnect("result options 5");
  EXPECT_EQ(Ask({Call::Options, {}, 0, 0, 0, 0}).body, "");
}

TEST_F(ControllerTest, Delays_ignores_drops_and_answers_with_rubbish_on_demand) {
  SwitchOnAndConnect("delay options 250\nsilent sysinfo\ndrop pmc\nrubbish detail");
  EXPECT_EQ(Send({Call::Options, {}, 0, 0, 0, 0}).delayMs, 250);
  const ControllerAction silent = Send({Call::SystemInfo, {}, 0, 0, 0, 0});
  EXPECT_EQ(silent.bytes, "");
  EXPECT_FALSE(silent.disconnect);
  EXPECT_TRUE(Send({Call::PmcRead, {}, 9, 0, 0, 0}).disconnect);
  std::string rubbish = Send({Call::PmcDetail, {}, 0, 0, 0, 0}).bytes;
  bool broken = false;
  TakePayload(rubbish, broken);
  EXPECT_TRUE(broken);
}

TEST_F(ControllerTest, PMC_memory_is_0_unless_the_scenario_sets_it) {
  SwitchOnAndConnect("pmc D 10 1 2 255");
  EXPECT_EQ(ReadD(9, 13).body, std::string("\0\x01\x02\xFF\0", 5));
}

TEST_F(ControllerTest, PMC_bytes_beyond_their_area_are_ignored) {
  SwitchOnAndConnect("pmc_size D 4\npmc D 3 7 8\npmc D 10 9");
  EXPECT_EQ(ReadD(3, 3).body, "\x07");
}

TEST_F(ControllerTest, PMC_memory_counts_reads_and_time) {
  SwitchOnAndConnect("pmc D 0 254\npmc_counts D 0 0 reads\npmc_counts D 1 1 every 1000");
  EXPECT_EQ(ReadD(0, 1, 0).body, std::string("\xFE\0", 2));
  EXPECT_EQ(ReadD(0, 1, 999).body, std::string("\xFF\0", 2));
  EXPECT_EQ(ReadD(0, 1, 1000).body, std::string("\0\x01", 2));
  EXPECT_EQ(ReadD(1, 1, 256000).body, std::string("\0", 1));
  EXPECT_EQ(ReadD(0, 0, 0).body, "\x02");
}

TEST_F(ControllerTest, A_read_of_8000_bytes_is_answered) {
  SwitchOnAndConnect("pmc_counts D 0 32767 reads");
  EXPECT_EQ(ReadD(0, 7999).body.size(), 8000U);
}

TEST_F(ControllerTest, Invalid_PMC_requests_fail_with_detail) {
  SwitchOnAndConnect("pmc_size D 9000");
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 13, 0, 0, 0}), 1);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, -1, 0, 0, 0}), 1);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 9, 1, 0, 0}), 2);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 9, 0, -1, 0}), 3);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 9, 0, 5, 4}), 3);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 9, 0, 0, 9000}), 3);
  EXPECT_EQ(FaultOf({Call::PmcRead, {}, 9, 0, 0, 8001}), 4);
}

TEST_F(ControllerTest, Keeps_the_detail_of_the_latest_PMC_error) {
  SwitchOnAndConnect("pmc_error D 100 199 5 -3");
  EXPECT_EQ(ReadD(99, 99).result, 0);
  EXPECT_EQ(ReadD(200, 200).result, 0);
  EXPECT_EQ(ReadD(0, 100).result, -16);
  EXPECT_EQ(ReadD(199, 300).result, -16);
  EXPECT_EQ(Ask({Call::PmcDetail, {}, 0, 0, 0, 0}).body, std::string("\x05\0\xFD\xFF", 4));
}

}  // namespace
}  // namespace tarvik::bench
