// A CNC library that violates its interface.

#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

template <typename Suite>
class LyingLibraryTest : public CncTest<Suite> {
 public:
  static WindowsPc::Options Options() {
    return CncTest<Suite>::OptionsWith({{"TARVIK_BENCH_NXLIB_LIE", Suite::kLie}});
  }
};

class UnterminatedTexts : public LyingLibraryTest<UnterminatedTexts> {
 public:
  static constexpr char kLie[] = "unended";
};

TEST_F(UnterminatedTexts, End_with_their_fields) {
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(TestLibrary(), (Lines{"CNC Type\tWWiB", "M/T     \tWW", "Serise  \tWWWW", "Version \tWWWW",
                                  "Max Axes\t32", "Axes    \tWW"}));
}

class HandleZero : public LyingLibraryTest<HandleZero> {
 public:
  static constexpr char kLie[] = "handle0";
};

TEST_F(HandleZero, Is_used_as_returned_and_not_freed) {
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(TestLibrary("-LANGID 1"), (Lines{"Option check error=-8", ""}));
  EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = 0 handle=0 open=0)",
                            "nx_getoptions1(0, 0) = -8 open=0"}));
}

class HandleOnFailure : public LyingLibraryTest<HandleOnFailure> {
 public:
  static constexpr char kLie[] = "handle_on_failure";
};

TEST_F(HandleOnFailure, Is_freed) {
  const Controller controller = Serve(BenchScenario("all_well"));
  EXPECT_EQ(TestLibrary(), Lines{"Allocate Handle error=-1"});
  EXPECT_EQ(Calls(), (Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = -1 handle=1 open=1)",
                            "nx_freehandle(1) = 0 open=0"}));
}

class HalfFilledRecord : public LyingLibraryTest<HalfFilledRecord> {
 public:
  static constexpr char kLie[] = "half";
};

TEST_F(HalfFilledRecord, Shows_empty_texts_for_the_rest) {
  const Controller controller = Serve(BenchScenario("all_well"));
  const Lines half = {"CNC Type\t31iB", "M/T     \t M", "Serise  \tG",
                      "Version \t",     "Max Axes\t32", "Axes    \t"};
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(TestLibrary(window), half);
  EXPECT_EQ(TestLibrary(window), half);
}

class WholeTimeOut : public LyingLibraryTest<WholeTimeOut> {
 public:
  static constexpr char kLie[] = "whole_time_out";
};

TEST_F(WholeTimeOut, Limits_how_long_the_window_is_blocked) {
  const Controller controller = Serve(BenchScenario("all_well"));
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(TestLibrary(window), Lines{"Allocate Handle error=-103"});
  EXPECT_EQ(Calls(), Lines{R"(nx_allochandle3("192.168.1.100", 8193, 5) = -103 handle=0 open=0)"});
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

}  // namespace
}  // namespace tarvik::lab
