#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/failures/failing_program.h"

namespace tarvik::test {

/// A call whose failure takes lines away and tells nothing, and why that is right.
struct Silence {
  const char* call;
  const char* reason;
  int way = 0;  ///< in which it fails; 0 = in any
};

/// Which pairs of failures are struck beside the single ones.
enum class Pairs {
  All,
  OfEachKind,  ///< of those that strike calls of the same names in the same ways only the first
  None
};

/// What is run with every call on its way failing once.
struct Routine {
  const char* name;
  /// Starts the program; by default the general edition in English. Null when the run does it itself.
  std::function<void(FailingProgram&)> start = [](FailingProgram& program) { program.Start(); };
  /// Brings the libraries and boxes into the state that each run begins with.
  std::function<void(FailingProgram&)> prepare = [](FailingProgram&) {};
  std::function<void(FailingProgram&)> run = nullptr;
  std::vector<Silence> silences = {};
  /// What is wrong with the program behind a run, beyond what is always looked at; empty = nothing.
  std::function<std::string(FailingProgram&)> check = [](FailingProgram&) { return std::string(); };
  bool captionsTell = false;  ///< a caption that is another than usual tells of a failure, as a line does
  bool again = true;          ///< behind every failure the run is made once more, with nothing failing
  Pairs pairs = Pairs::All;
};

/// Counts the failures of a routine, and prints them.
class FailureTest : public testing::Test {
 protected:
  /// Runs the routine with nothing failing, then once for each way in which each of its calls can fail, then
  /// for the pairs of these. Looks behind each run whether the program stands as before, has given back all
  /// that it took and said what failed.
  void StrikeEveryCall(const Routine& routine);

  static void TearDownTestSuite();
};

}  // namespace tarvik::test
