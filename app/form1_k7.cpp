// The K7 pages.

#include <limits>
#include <optional>

#include "app/form1.h"
#include "k7/k7_api_check.h"
#include "platform/runtime_error.h"
#include "report/typed_numbers.h"
#include "ui/hourglass.h"

namespace tarvik {
namespace {

/// The button offers the stop for as long as it lives.
class StopCaption {
 public:
  explicit StopCaption(ui::Button& button) : button_(button), causedValidation_(button.causesValidation) {
    button_.SetCaption(RowOf(Message::StopButton).english);
    button_.causesValidation = false;
  }
  ~StopCaption() {
    // Another test around this one may still offer its stop.
    button_.causesValidation = causedValidation_;
    try {
      button_.SetCaption(RowOf(Message::K7ApiButton).english);
    } catch (const RuntimeError&) {
      // The test has ended all the same; a caption is no reason to end the program.
    }
  }
  StopCaption(const StopCaption&) = delete;
  StopCaption& operator=(const StopCaption&) = delete;

 private:
  ui::Button& button_;
  const bool causedValidation_;
};

/// Clears the stop request at the end of a test, unless the test is part of a run, whose request it is.
class StopRequestOfTest {
 public:
  explicit StopRequestOfTest(RunFlags& flags) : flags_(flags) {}
  ~StopRequestOfTest() {
    if (!flags_.busy) flags_.stopRequested = false;
  }
  StopRequestOfTest(const StopRequestOfTest&) = delete;
  StopRequestOfTest& operator=(const StopRequestOfTest&) = delete;

 private:
  RunFlags& flags_;
};

}  // namespace

class Form1::K7ApiRun {
 public:
  explicit K7ApiRun(Form1& form) : form_(form) { form_.k7ApiBusy_ = true; }
  ~K7ApiRun() { form_.k7ApiBusy_ = false; }
  K7ApiRun(const K7ApiRun&) = delete;
  K7ApiRun& operator=(const K7ApiRun&) = delete;

 private:
  Form1& form_;
};

bool Form1::RunK7ApiTest() {
  if (missing_.k7Api) return true;
  bool passed = false;
  Guarded([&] {
    const StopRequestOfTest stopRequest(ground_.flags);
    const std::wstring address = controls_.cmbIPAddr.Text();
    // Without an address nothing begins that would have to be seen or stopped.
    std::optional<ui::Hourglass> hourglass;
    std::optional<StopCaption> caption;
    if (!address.empty()) {
      hourglass.emplace(ground_.form);
      caption.emplace(controls_.cmdK7Api);
    }
    const std::wstring count = controls_.txtK7ApiTestCount.Text();
    passed = RunToLastEvent([&] {
      return tarvik::RunK7ApiTest(context_, ground_.k7Api, ground_.codePage, address,
                                  commandLine_.k7ServerHost, count,
                                  report::NumberRequiredText(count, controls_.lblTestCount.Caption(), 0,
                                                             std::numeric_limits<int32_t>::max(), texts_));
    });
  });
  return passed;
}

void Form1::cmdK7Api_Click() {
  if (k7ApiBusy_) {
    ground_.flags.stopRequested = true;
    return;
  }
  const K7ApiRun run(*this);
  RunK7ApiTest();
}

}  // namespace tarvik
