// What the K7 API check reports to the recorder besides its lines.

#include <gtest/gtest.h>

#include "k7/k7_api_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_k7_api.h"

namespace tarvik::test {
namespace {

class K7FactsTest : public testing::Test, protected FakeContext {
 protected:
  const report::K7Facts& Run(const std::wstring& count = L"2", const std::wstring& address = L"192.168.1.1") {
    RunK7ApiTest(context, k7Api, codePage, address, host, count, L"a number is required");
    return recorder.run.facts.k7;
  }

  FakeK7Api k7Api;
  std::wstring host = L"127.0.0.1";
};

TEST_F(K7FactsTest, How_often_the_CNC_was_live) {
  k7Api.onCheck = [this] { k7Api.live = k7Api.checks.size() == 1 ? 1 : 0; };
  EXPECT_EQ(Run(L"3").asked, 3);
  EXPECT_EQ(Run(L"3").answers, 3);
  EXPECT_EQ(recorder.run.facts.k7.server, L"127.0.0.1");
  EXPECT_EQ(recorder.run.facts.k7.progress, report::Progress::Ended);
}

TEST_F(K7FactsTest, Only_live_answers_are_counted_as_live) {
  k7Api.onCheck = [this] { k7Api.live = k7Api.checks.size() == 1 ? 1 : 0; };
  EXPECT_EQ(Run(L"3").live, 1);
}

TEST_F(K7FactsTest, The_failing_call_with_both_error_numbers) {
  k7Api.connectResult = 0;
  k7Api.errorCode = 0x1009F101;
  k7Api.systemError = 0x274D;
  const report::K7Facts& facts = Run();
  EXPECT_EQ(facts.failed, report::K7Call::ConnectServer);
  EXPECT_EQ(static_cast<uint32_t>(facts.errorCode), 0x1009F101u);
  EXPECT_EQ(facts.systemError, 0x274D);
  k7Api.connectResult = -1;
  k7Api.goodChecks = 0;
  EXPECT_EQ(Run().failed, report::K7Call::CheckReboot);
  k7Api.allocResult = 1;
  EXPECT_EQ(Run().failed, report::K7Call::AllocHandle);
}

TEST_F(K7FactsTest, A_count_that_is_no_number_and_a_missing_address) {
  EXPECT_TRUE(Run(L"x").countInvalid);
  EXPECT_TRUE(Run(L"1", L"").addressMissing);
}

}  // namespace
}  // namespace tarvik::test
