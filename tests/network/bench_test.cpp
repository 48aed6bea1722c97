#include "lab/network/controller.h"
#include "tests/network/on_cables.h"
#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {
namespace {

/// The bench's CNC library on the laboratory's PC, with controllers on the network.
class BenchOnCables : public OnCables<BenchTest> {
 protected:
  Fields Allocate(const std::string& address, const std::string& timeOut) {
    return Call({"nx_allochandle3", address, std::to_string(kLibraryPort), timeOut});
  }
};

TEST_F(BenchOnCables, A_controller_answers_on_the_subnet_and_beyond_the_gateway) {
  const Controller nearOne(Net(), Host::Near, "model_type 31\n");
  const Controller farOne(Net(), Host::Far, "model_type 16\n");
  const Fields nearHandle = Allocate(kNearAddress, "60");
  const Fields farHandle = Allocate(kFarAddress, "60");
  EXPECT_EQ(Call({"nx_sysinfo", nearHandle.at(1)}).at(3), "31");
  EXPECT_EQ(Call({"nx_sysinfo", farHandle.at(1)}).at(3), "16");
}

TEST_F(BenchOnCables, A_cable_unplugged_before_the_call_gives_no_connection_or_a_time_out) {
  const Controller controller(Net(), Host::Near, "");
  Net().PullCable(Host::Near);
  const Fields answer = Allocate(kNearAddress, "2");
  EXPECT_TRUE(answer.at(0) == "-102" || answer.at(0) == "-103") << answer.at(0);
  EXPECT_EQ(answer.at(1), "0");
}

TEST_F(BenchOnCables, A_cable_pulled_while_a_handle_is_open_gives_a_time_out) {
  const Controller controller(Net(), Host::Near, "");
  const std::string handle = Allocate(kNearAddress, "5").at(1);
  ASSERT_EQ(Call({"nx_sysinfo", handle}).at(0), "0");
  Net().PullCable(Host::Near);
  EXPECT_EQ(Call({"nx_sysinfo", handle}).at(0), "-103");
  EXPECT_EQ(Call({"nx_freehandle", handle}).at(0), "0");
}

TEST_F(BenchOnCables, Without_a_controller_the_connection_is_refused) {
  EXPECT_EQ(Allocate(kNearAddress, "30").at(0), "-102");
}

}  // namespace
}  // namespace tarvik::lab
