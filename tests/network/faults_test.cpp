// Runs every file of lab/scenarios as a test named after it. Files are found at run time: a new one needs no
// build.

#include <algorithm>
#include <cstdio>

#include "lab/faults/scenario_run.h"
#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kScenarios[] = TARVIK_SOURCE_FOLDER "/lab/scenarios";

std::vector<Scenario> ScenariosOf(FaultGroup group) {
  std::vector<Scenario> scenarios = ReadScenarios(kScenarios);
  std::erase_if(scenarios, [group](const Scenario& each) { return each.group != group; });
  return scenarios;
}

template <typename Suite>
class FaultTest : public LabTest<Suite> {
 protected:
  void SetUp() override {
    LabTest<Suite>::SetUp();
    if (!this->IsSkipped()) this->GiveUpConnectingSoon();
  }

  void ExpectOutcomeOf(const Scenario& scenario) {
    const WindowsPc::Options options = Suite::Options();
    const ScenarioContext context{this->Pc(),           this->Net(),         ProgramPath(),
                                  GeneralProgramPath(), options.programPath, options.cacheFolder};
    const std::string difference = Difference(scenario, RunScenario(context, scenario));
    if (!difference.empty()) ADD_FAILURE() << difference;
  }
};

class NetworkFaults : public FaultTest<NetworkFaults> {};
class NameFaults : public FaultTest<NameFaults> {};
class LibraryFaults : public FaultTest<LibraryFaults> {};
class K7Faults : public FaultTest<K7Faults> {};
class FtpFaults : public FaultTest<FtpFaults> {};

TEST_F(NetworkFaults, Have_scenarios) { EXPECT_FALSE(ScenariosOf(FaultGroup::Network).empty()); }
TEST_F(NameFaults, Have_scenarios) { EXPECT_FALSE(ScenariosOf(FaultGroup::Names).empty()); }
TEST_F(LibraryFaults, Have_scenarios) { EXPECT_FALSE(ScenariosOf(FaultGroup::CncLibrary).empty()); }
TEST_F(K7Faults, Have_scenarios) { EXPECT_FALSE(ScenariosOf(FaultGroup::K7).empty()); }
TEST_F(FtpFaults, Have_scenarios) { EXPECT_FALSE(ScenariosOf(FaultGroup::Ftp).empty()); }

template <typename Suite>
void Register(const char* suite, FaultGroup group) {
  for (const Scenario& scenario : ScenariosOf(group)) {
    class Test : public Suite {
     public:
      explicit Test(Scenario each) : scenario_(std::move(each)) {}
      void TestBody() override { this->ExpectOutcomeOf(scenario_); }

     private:
      Scenario scenario_;
    };
    testing::RegisterTest(suite, scenario.name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                          [scenario]() -> Suite* { return new Test(scenario); });
  }
}

bool RegisterAll() {
  try {
    Register<NetworkFaults>("NetworkFaults", FaultGroup::Network);
    Register<NameFaults>("NameFaults", FaultGroup::Names);
    Register<LibraryFaults>("LibraryFaults", FaultGroup::CncLibrary);
    Register<K7Faults>("K7Faults", FaultGroup::K7);
    Register<FtpFaults>("FtpFaults", FaultGroup::Ftp);
    return true;
  } catch (const ScenarioError& error) {
    // The Have_scenarios tests throw the same error and fail.
    std::fprintf(stderr, "%s\n", error.what());
    return false;
  }
}

[[maybe_unused]] const bool kRegistered = RegisterAll();

}  // namespace
}  // namespace tarvik::lab
