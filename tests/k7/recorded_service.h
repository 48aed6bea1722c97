#pragma once

#include <memory>
#include <string>
#include <vector>

#include "k7/service_control.h"
#include "resources/resource.h"
#include "tests/recorded/fake_code_page.h"
#include "tests/recorded/fake_pump.h"
#include "tests/recorded/recorded_boxes.h"
#include "tests/recorded/recorded_files.h"
#include "tests/recorded/recorded_modules.h"
#include "tests/recorded/recorded_profile_strings.h"
#include "tests/recorded/recorded_svc_kit.h"

namespace tarvik::test {

/// A service utility on recorded libraries, and what the commands of the K7 Svc page take.
struct RecordedService {
  explicit RecordedService(LanguageMode languageMode = 1) : mode(languageMode) {
    kernel.paths["SvcKit.DLL"] = "C:\\System\\SvcKit.dll";
    service = NewService();
    service->mInitialize(mode);
  }
  ~RecordedService() {
    if (service) service->mTerminate();
  }
  RecordedService(const RecordedService&) = delete;
  RecordedService& operator=(const RecordedService&) = delete;

  std::unique_ptr<SvcUtl> NewService() {
    return std::make_unique<SvcUtl>(library, FileUtil(kernel, versions), boxes, pump, codePage);
  }

  K7ServiceTools Tools() {
    return {*service, boxes, texts, pump, [this](int32_t status) { shown.push_back(status); }};
  }

  /// The only box that was shown.
  RecordedBoxes::Box Box() const {
    return boxes.boxes.size() == 1 ? boxes.boxes.front()
                                   : RecordedBoxes::Box{L"not one box", {}, {}, {}, {}, {}};
  }

  RecordedSvcKit library;
  RecordedKernel kernel;
  RecordedVersions versions;
  FakeCodePage codePage;
  RecordedBoxes boxes;
  FakePump pump;
  RecordedFiles files;
  RecordedProfileStrings profile;
  Resource resource{files, profile, codePage, boxes};  ///< gives every text as its number in brackets
  LanguageMode mode;
  Texts texts{mode, resource};
  std::unique_ptr<SvcUtl> service;
  std::vector<int32_t> shown;  ///< states that were shown to the user
};

}  // namespace tarvik::test
