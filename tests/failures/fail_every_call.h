#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/failures/failing_program.h"

namespace tarvik::test {

/// A call whose failure may remove output without being reported, and why.
struct Silence {
  const char* call;
  const char* reason;
  int way = 0;  ///< way in which it fails; 0 = any
};

/// Which pairs of failures are injected in addition to single ones.
enum class Pairs {
  All,
  OfEachKind,  ///< only pairs whose kind is new in the suite: the names of both calls, and their ways
  None
};

/// Something that the program does, in which every call is made to fail once.
struct Routine {
  const char* name;
  /// Starts the program; by default the general edition in English. Null when `run` starts it.
  std::function<void(FailingProgram&)> start = [](FailingProgram& program) { program.Start(); };
  /// Sets the state of the libraries and text boxes before each run.
  std::function<void(FailingProgram&)> prepare = [](FailingProgram&) {};
  std::function<void(FailingProgram&)> run = nullptr;
  std::vector<Silence> silences = {};
  /// Additional check after a run. Returns what is wrong; empty = nothing.
  std::function<std::string(FailingProgram&)> check = [](FailingProgram&) { return std::string(); };
  bool captionsReport = false;  ///< an unusual caption also counts as a report of the failure
  bool runsAgain = true;        ///< after each failure the program is kept and must run normally
  Pairs pairs = Pairs::All;
};

/// Prints how many failures each suite injected.
class FailureTest : public testing::Test {
 protected:
  /// Runs the routine without a failure, then once for each way in which each of its calls can fail, then
  /// with pairs of failures. After each run the program must be usable as before, must have released
  /// everything, and must have reported what failed.
  void FailEveryCall(const Routine& routine);

  static void TearDownTestSuite();
};

}  // namespace tarvik::test
