#pragma once

#include <memory>
#include <string>
#include <vector>

#include "k7/service_control.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fakes/fake_svc_kit.h"

namespace tarvik::test {

/// A service utility with fake libraries, and the commands of the K7 Svc page.
struct FakeService : FakeContext {
  explicit FakeService(LanguageMode languageMode = 1) {
    mode = languageMode;
    kernel.paths["SvcKit.DLL"] = "C:\\System\\SvcKit.dll";
    service = NewService();
    service->mInitialize(mode);
  }
  ~FakeService() {
    if (service) service->mTerminate();
  }
  FakeService(const FakeService&) = delete;
  FakeService& operator=(const FakeService&) = delete;

  std::unique_ptr<SvcUtl> NewService() {
    return std::make_unique<SvcUtl>(library, FileUtil(kernel, versions), boxes, pump, codePage);
  }

  void Refresh() { RefreshK7ServiceState(*service, showState); }
  void Start() { StartK7Service(context, *service, showState); }
  void Stop() { StopK7Service(context, *service, showState); }

  /// The box that was shown, which must be the only one.
  FakeBoxes::Box Box() const {
    return boxes.boxes.size() == 1 ? boxes.boxes.front() : FakeBoxes::Box{L"not one box", {}, {}, {}, {}, {}};
  }

  FakeSvcKit library;
  FakeKernel kernel;
  FakeVersions versions;
  std::unique_ptr<SvcUtl> service;
  std::vector<int32_t> shown;  ///< states that were shown to the user
  const ShowServiceState showState = [this](int32_t status) { shown.push_back(status); };
};

}  // namespace tarvik::test
