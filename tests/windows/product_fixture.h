#pragma once

#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {

/// Product code that cannot be reached through the window, called through product_caller.exe with the
/// libraries of Windows.
class ProductTest : public BenchTest {
 protected:
  void SetUp() override {
    if (const auto reason = UnsupportedReason()) GTEST_SKIP() << *reason;
    StartCaller(std::filesystem::path(ProgramPath()).parent_path() / "product_caller.exe");
  }
};

}  // namespace tarvik::lab
