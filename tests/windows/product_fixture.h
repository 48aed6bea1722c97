#pragma once

#include "tests/windows/bench_fixture.h"

namespace tarvik::lab {

/// Parts of the product that no click reaches, called with the system's own libraries by a program of the
/// test's own.
class ProductTest : public BenchTest {
 protected:
  void SetUp() override {
    if (const auto reason = UnsupportedReason()) GTEST_SKIP() << *reason;
    StartCaller(std::filesystem::path(ProgramPath()).parent_path() / "product_caller.exe");
  }
};

}  // namespace tarvik::lab
