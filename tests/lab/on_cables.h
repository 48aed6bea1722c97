#pragma once

#include <memory>

#include "lab/laboratory.h"

namespace tarvik::lab {

/// A suite whose programs stand on the PC of a laboratory network, which every test finds as it was laid.
template <typename Base>
class OnCables : public Base {
 protected:
  static void SetUpTestSuite() {
    if (const auto reason = Laboratory::UnsupportedReason()) {
      Base::SkipSuite(reason);
      return;
    }
    net_ = std::make_unique<Laboratory>(Base::Cache());
    Base::SetNetworkNamespace(net_->Namespace(Host::Pc));
    Base::SetUpTestSuite();
  }
  static void TearDownTestSuite() {
    Base::TearDownTestSuite();
    Base::SetNetworkNamespace({});
    net_.reset();
  }

  void TearDown() override {
    Base::TearDown();
    if (net_) net_->Reset();
  }

  static const Laboratory& Net() { return *net_; }

 private:
  static inline std::unique_ptr<Laboratory> net_;
};

}  // namespace tarvik::lab
