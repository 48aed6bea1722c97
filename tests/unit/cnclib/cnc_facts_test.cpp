// What the CNC library's check reports to the recorder besides its lines.

#include <gtest/gtest.h>

#include "cnclib/cnc_check.h"
#include "platform/runtime_error.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"

namespace tarvik::test {
namespace {

class CncFactsTest : public testing::Test, protected FakeContext {
 protected:
  const report::CncFacts& Run() {
    RunLibraryTest(
        context, library, codePage, [](bool) {}, target, accessCode, missing, options);
    return recorder.run.facts.cnc;
  }

  FakeCncLibrary library;
  CncTarget target{L"192.168.1.100", {L"8193", L"TCP port"}, {L"10", L"Time-out"}};
  std::optional<std::wstring> accessCode;
  bool missing = false;
  uint32_t options = 0;
};

TEST_F(CncFactsTest, The_controllers_type_after_a_passed_test) {
  library.options = 1;
  const report::CncFacts& facts = Run();
  EXPECT_EQ(facts.call, report::CncCall::SystemInfo);
  EXPECT_EQ(facts.result, 0);
  EXPECT_FALSE(facts.type.empty());
  EXPECT_EQ(facts.port, 8193);
  EXPECT_EQ(facts.timeOutSeconds, 10);
  EXPECT_EQ(facts.progress, report::Progress::Ended);
}

TEST_F(CncFactsTest, The_failing_call_and_its_number) {
  library.openResult = -103;
  EXPECT_EQ(Run().call, report::CncCall::Connect);
  EXPECT_EQ(Run().result, -103);
  library.openResult = 0;
  library.optionsResult = -7;
  EXPECT_EQ(Run().call, report::CncCall::Options);
  library.optionsResult = 0;
  library.options = 1;
  library.infoResult = -1;
  EXPECT_EQ(Run().call, report::CncCall::SystemInfo);
  EXPECT_EQ(Run().result, -1);
}

TEST_F(CncFactsTest, A_rejected_access_code_and_whether_the_user_gave_one) {
  library.openResult = library.codeResult = 7;
  EXPECT_FALSE(Run().codeGiven);
  EXPECT_EQ(Run().call, report::CncCall::ConnectWithCode);
  accessCode = L"1234";
  EXPECT_TRUE(Run().codeGiven);
  accessCode = L"0";
  EXPECT_TRUE(Run().codeMissing);
}

TEST_F(CncFactsTest, A_missing_option) {
  library.options = 0x7E;
  EXPECT_TRUE(Run().optionMissing);
}

TEST_F(CncFactsTest, A_missing_library_or_address) {
  missing = true;
  EXPECT_TRUE(Run().libraryMissing);
  missing = false;
  target.address.clear();
  EXPECT_TRUE(Run().addressMissing);
}

TEST_F(CncFactsTest, How_long_the_failing_call_took) {
  library.openResult = -103;
  library.onCall = [this] { pump.now += 10'000; };
  EXPECT_EQ(Run().callMs, 10'000u);
}

TEST_F(CncFactsTest, An_exception_leaves_the_rung_without_a_verdict) {
  target.port.text = L"x";
  EXPECT_THROW(Run(), RuntimeError);
  EXPECT_EQ(recorder.run.facts.cnc.progress, report::Progress::Running);
}

}  // namespace
}  // namespace tarvik::test
