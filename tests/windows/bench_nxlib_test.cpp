#include "lab/network/controller.h"
#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {
namespace {

class BenchNxLib : public BenchTest {
 protected:
  void SwitchOn(const std::string& scenario) { controller_ = std::make_unique<Controller>(scenario); }

  Fields Allocate(const std::string& timeOut = "60") {
    return Call({"nx_allochandle3", "127.0.0.1", Port(), timeOut});
  }
  Fields AllocateWithCode(const std::string& code) {
    return Call({"nx_allochandle_code", "127.0.0.1", Port(), code, "60"});
  }
  std::string Handle(const std::string& timeOut = "60") {
    const Fields answer = Allocate(timeOut);
    EXPECT_EQ(answer.at(0), "0");
    return answer.at(1);
  }
  std::string Port() const { return std::to_string(controller_->Port()); }

  void SwitchOff() { controller_.reset(); }

 private:
  std::unique_ptr<Controller> controller_;
};

TEST_F(BenchNxLib, Every_version_resource_says_practice_bench) {
  for (const char* name : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll", "ObryConfIO.dll",
                           "txcodec.dll", "K7Server.exe", "practice_controller.exe"}) {
    const Fields version = Call({"version", name});
    EXPECT_EQ(version.at(0), "1.0.0.0 practice bench") << name;
    EXPECT_TRUE(version.at(1).starts_with("practice bench: ")) << name;
  }
}

TEST_F(BenchNxLib, The_companion_library_can_be_loaded_and_exports_no_calls) {
  EXPECT_EQ(Call({"exports", "NxLibe1.dll", "nx_sysinfo"}).at(0), "0");
  EXPECT_EQ(Call({"exports", "NxLib32.dll", "nx_sysinfo"}).at(0), "1");
}

TEST_F(BenchNxLib, Every_call_is_recorded_with_its_result) {
  SwitchOn("model_type GL\nmachine_type \" T\"\naddinfo 512\nmax_axes 8\noptions 0x41\n");
  const std::string handle = Handle();
  EXPECT_EQ(Call({"nx_getoptions1", handle}), (Fields{"0", "65"}));
  EXPECT_EQ(Call({"nx_sysinfo", handle}),
            (Fields{"0", "512", "8", "GL", " T", "G301", "10.0", "03", "~~~~~~~~"}));
  EXPECT_EQ(Call({"nx_freehandle", handle}).at(0), "0");
  EXPECT_EQ(Calls(),
            (Fields{"nx_allochandle3(\"127.0.0.1\", " + Port() + ", 60) = 0 handle=" + handle + " open=1",
                    "nx_getoptions1(" + handle + ", 0) = 0 open=1", "nx_sysinfo(" + handle + ") = 0 open=1",
                    "nx_freehandle(" + handle + ") = 0 open=0"}));
}

TEST_F(BenchNxLib, Result_7_requests_an_access_code) {
  SwitchOn("access_code 12345678\n");
  EXPECT_EQ(Allocate(), (Fields{"7", "0"}));
  EXPECT_EQ(AllocateWithCode("0"), (Fields{"7", "0"}));
  EXPECT_EQ(AllocateWithCode("12345678").at(0), "0");
  EXPECT_EQ(Calls().back().substr(0, 19), "nx_allochandle_code");
}

TEST_F(BenchNxLib, PMC_bytes_arrive_and_change) {
  SwitchOn("pmc D 10 0x01 0xFF\npmc_counts D 11 11 reads\n");
  const std::string handle = Handle();
  EXPECT_EQ(Call({"nx_pmc_rdrange", handle, "9", "0", "10", "11", "10"}),
            (Fields{"0", "9", "0", "10", "11", "2", "01FF"}));
  EXPECT_EQ(Call({"nx_pmc_rdrange", handle, "9", "0", "10", "11", "10"}).at(6), "0100");
}

TEST_F(BenchNxLib, The_longest_PMC_read_fills_8000_bytes_and_no_more) {
  SwitchOn("");
  const Fields answer = Call({"nx_pmc_rdrange", Handle(), "9", "0", "0", "7999", "8008"});
  EXPECT_EQ(answer.at(0), "0");
  EXPECT_EQ(answer.at(5), "8000");
}

TEST_F(BenchNxLib, A_length_too_small_for_the_range_is_rejected) {
  SwitchOn("");
  const Fields answer = Call({"nx_pmc_rdrange", Handle(), "9", "0", "0", "1", "9"});
  EXPECT_EQ(answer.at(0), "4");
  EXPECT_EQ(answer.at(5), "0");
}

TEST_F(BenchNxLib, A_PMC_error_has_details) {
  SwitchOn(BenchScenario("pmc_errors"));
  const std::string handle = Handle();
  EXPECT_EQ(Call({"nx_pmc_rdrange", handle, "9", "0", "150", "150", "9"}).at(0), "-16");
  EXPECT_EQ(Call({"nx_pmc_detailerr", handle}), (Fields{"0", "5", "3"}));
}

TEST_F(BenchNxLib, A_handle_that_is_not_open_is_invalid) {
  for (const char* call : {"nx_getoptions1", "nx_sysinfo", "nx_pmc_detailerr", "nx_freehandle"}) {
    EXPECT_EQ(Call({call, "77"}).at(0), "-8") << call;
  }
}

TEST_F(BenchNxLib, A_silent_controller_and_one_that_is_off_have_different_codes) {
  SwitchOn("silent sysinfo\n");
  const std::string handle = Handle("1");
  EXPECT_EQ(Call({"nx_sysinfo", handle}).at(0), "-103");
  EXPECT_EQ(Call({"nx_sysinfo", handle}).at(0), "-104");
  const std::string port = Port();
  SwitchOff();
  EXPECT_EQ(Call({"nx_allochandle3", "127.0.0.1", port, "5"}), (Fields{"-102", "0"}));
  EXPECT_EQ(Call({"nx_freehandle", handle}).at(0), "0");
}

TEST_F(BenchNxLib, Returns_handle_0_on_demand) {
  SwitchOn("");
  Set("TARVIK_BENCH_NXLIB_LIE", "handle0");
  EXPECT_EQ(Allocate(), (Fields{"0", "0"}));
  EXPECT_TRUE(Calls().back().ends_with("open=0"));
}

TEST_F(BenchNxLib, Returns_a_handle_with_a_failure_on_demand) {
  SwitchOn("");
  Set("TARVIK_BENCH_NXLIB_LIE", "handle_on_failure");
  const Fields answer = Allocate();
  EXPECT_EQ(answer.at(0), "-1");
  EXPECT_NE(answer.at(1), "0");
  EXPECT_EQ(Call({"nx_freehandle", answer.at(1)}).at(0), "0");
}

TEST_F(BenchNxLib, Returns_unterminated_texts_and_half_filled_records_on_demand) {
  SwitchOn("pmc D 0 1 2 3 4\n");
  const std::string handle = Handle();
  Set("TARVIK_BENCH_NXLIB_LIE", "unended");
  EXPECT_EQ(Call({"nx_sysinfo", handle}),
            (Fields{"0", "512", "32", "WW", "WW", "WWWW", "WWWW", "WW", "~~~~~~~~"}));
  Set("TARVIK_BENCH_NXLIB_LIE", "half");
  EXPECT_EQ(Call({"nx_sysinfo", handle}),
            (Fields{"0", "512", "32", "31", " M", "G~~~", "~~~~", "~~", "~~~~~~~~"}));
  EXPECT_EQ(Call({"nx_pmc_rdrange", handle, "9", "0", "0", "3", "12"}).at(6), "0102");
}

TEST_F(BenchNxLib, Waits_for_the_whole_time_out_on_demand) {
  SwitchOn("");
  const std::string handle = Handle("1");
  Set("TARVIK_BENCH_NXLIB_LIE", "whole_time_out");
  EXPECT_EQ(Call({"nx_sysinfo", handle}).at(0), "-103");
  EXPECT_EQ(Call({"nx_freehandle", handle}).at(0), "0");
}

}  // namespace
}  // namespace tarvik::lab
