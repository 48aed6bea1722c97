#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "lab/network/laboratory.h"
#include "lab/pc/test_environment.h"

namespace tarvik::lab {

/// Puts the programs of a fixture (WindowsTest or BenchTest) on the PC of a laboratory network, which is in
/// its initial state when a test starts.
template <typename Base>
class OnCables : public Base {
 protected:
  static void SetUpTestSuite() {
    unsupportedReason_ = Laboratory::UnsupportedReason();
    if (unsupportedReason_) return;
    net_ = std::make_unique<Laboratory>(PcForTests().cacheFolder);
    Base::SetUpSuiteIn(net_->Namespace(Host::Pc));
  }
  static void TearDownTestSuite() {
    Base::TearDownTestSuite();
    net_.reset();
  }

  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
    net_->Reset();
    Base::SetUp();
  }

  static const Laboratory& Net() { return *net_; }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::unique_ptr<Laboratory> net_;
};

}  // namespace tarvik::lab
