#pragma once

#include <stdexcept>
#include <vector>

#include "platform/runtime_error.h"
#include "report/check_context.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_system.h"

namespace tarvik::test {

/// A view that counts updates, or rejects every one. It keeps as many lines as `kept` says, and does not
/// compare them: that would take too long for lists of 100,000 lines.
class FakeResultView final : public report::ResultView {
 public:
  void Update(const std::vector<std::wstring>& lines, size_t kept, bool) override {
    if (refusing) throw RuntimeError(L"A line could not be added to the list.");
    ++updates;
    if (kept == 0) shown_.clear();
    if (kept != shown_.size())
      throw std::logic_error("The number of kept lines is not that of the shown ones.");
    for (size_t i = kept; i < lines.size(); ++i) shown_.push_back(lines[i]);
  }
  size_t Count() const override { return shown_.size(); }
  std::vector<std::wstring> Shown() const override { return shown_; }

  bool refusing = false;
  int updates = 0;

 private:
  std::vector<std::wstring> shown_;
};

/// The context of a check without windows, with the built-in English texts.
struct FakeContext {
  FakeResultView view;
  report::ResultList results{view};
  FakeBoxes boxes;
  FakePump pump;
  FakeCodePage codePage;
  FakeFiles files;
  FakeSystem system;
  Resource resource{files, system, codePage};  ///< without a file: texts are numbers in brackets
  LanguageMode mode = 1;
  Texts texts{mode, resource};
  report::RunRecorder recorder{pump};
  report::CheckContext context{results, boxes, texts, pump, recorder};
};

}  // namespace tarvik::test
