// The K7 API test. It is not an outermost run: it also runs inside one, and has its own stop button.

#include <limits>

#include "app/form1.h"
#include "k7/k7_api_check.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "report/typed_numbers.h"
#include "ui/hourglass.h"

namespace tarvik {

bool Form1::RunK7ApiTest() {
  if (missing_.k7Api) {
    recorder_.run.facts.k7 = {};
    recorder_.run.facts.k7.progress = report::Progress::Ended;
    recorder_.run.facts.k7.libraryMissing = true;
    return true;
  }
  bool passed = false;
  deps_.form.Guarded([&] {
    // Inside a run, the stop request belongs to the run, which clears it.
    const ScopeGuard clearStopRequest([this] {
      if (!deps_.flags.busy) deps_.flags.stopRequested = false;
    });
    const std::wstring count = controls_.txtK7ApiTestCount.Text();
    const auto test = [&](const std::wstring& address) {
      return RunThenDrainEvents([&] {
        return tarvik::RunK7ApiTest(context_, deps_.k7Api, deps_.codePage, address, commandLine_.k7ServerHost,
                                    count,
                                    report::NumberRequiredText(count, controls_.lblTestCount.Caption(), 0,
                                                               std::numeric_limits<int32_t>::max(), texts_));
      });
    };
    const std::wstring address = controls_.cmbIPAddr.Text();
    // Without an address the test ends immediately; there is nothing to stop.
    passed = address.empty() ? test(address) : RunWithStopButton([&] { return test(address); });
  });
  return passed;
}

bool Form1::RunWithStopButton(const std::function<bool()>& test) {
  const ScopeGuard hourglass = ui::ShowHourglass(deps_.form);
  ui::Button& button = controls_.cmdK7Api;
  const bool causedValidation = button.causesValidation;
  button.SetCaption(RowOf(Message::StopButton).english);
  button.causesValidation = false;
  const ScopeGuard restore([&] {
    // An outer K7 API test may still be using the button as its stop.
    button.causesValidation = causedValidation;
    try {
      button.SetCaption(RowOf(Message::K7ApiButton).english);
    } catch (const RuntimeError&) {
      // An exception that left this guard would end the program.
    }
  });
  return ShowOnTaskbar(test);
}

void Form1::cmdK7Api_Click() {
  if (k7ApiBusy_) {
    deps_.flags.stopRequested = true;
    return;
  }
  if (saving_) return;
  k7ApiBusy_ = true;
  const ScopeGuard done([this] { k7ApiBusy_ = false; });
  Recorded({report::Rung::K7}, [this] { return RunK7ApiTest(); });
}

}  // namespace tarvik
