#pragma once

#include <memory>
#include <string>
#include <vector>

#include "k7/service_control.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fakes/fake_profile_strings.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_svc_kit.h"

namespace tarvik::test {

/// A service utility on recorded libraries, and what the commands of the K7 Svc page take.
struct FakeService {
  explicit FakeService(LanguageMode languageMode = 1) : mode(languageMode) {
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

  K7ServiceTools Tools() {
    return {*service, boxes, texts, pump, [this](int32_t status) { shown.push_back(status); }};
  }

  /// The only box that was shown.
  FakeBoxes::Box Box() const {
    return boxes.boxes.size() == 1 ? boxes.boxes.front() : FakeBoxes::Box{L"not one box", {}, {}, {}, {}, {}};
  }

  FakeSvcKit library;
  FakeKernel kernel;
  FakeVersions versions;
  FakeCodePage codePage;
  FakeBoxes boxes;
  FakePump pump;
  FakeFiles files;
  FakeProfileStrings profile;
  Resource resource{files, profile, codePage, boxes};  ///< gives every text as its number in brackets
  LanguageMode mode;
  Texts texts{mode, resource};
  std::unique_ptr<SvcUtl> service;
  std::vector<int32_t> shown;  ///< states that were shown to the user
};

}  // namespace tarvik::test
