// The test of page K7 Api.

#include <limits>

#include "app/form1.h"
#include "k7/k7_api_check.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "report/typed_numbers.h"
#include "ui/hourglass.h"

namespace tarvik {
bool Form1::RunK7ApiTest() {
  if (missing_.k7Api) return true;
  bool passed = false;
  deps_.form.Guarded([&] {
    // The stop request of a run that contains this test is not this test's to clear.
    const ScopeGuard clearStopRequest([this] {
      if (!deps_.flags.busy) deps_.flags.stopRequested = false;
    });
    const std::wstring count = controls_.txtK7ApiTestCount.Text();
    const auto test = [&](const std::wstring& address) {
      return RunToLastEvent([&] {
        return tarvik::RunK7ApiTest(context_, deps_.k7Api, deps_.codePage, address,
                                    commandLine_.k7ServerHost, count,
                                    report::NumberRequiredText(count, controls_.lblTestCount.Caption(), 0,
                                                               std::numeric_limits<int32_t>::max(), texts_));
      });
    };
    const std::wstring address = controls_.cmbIPAddr.Text();
    // Without an address the test ends at once; there is nothing to stop.
    passed = address.empty() ? test(address) : WhileStopIsOffered([&] { return test(address); });
  });
  return passed;
}

bool Form1::WhileStopIsOffered(const std::function<bool()>& test) {
  const ScopeGuard hourglass = ui::ShowHourglass(deps_.form);
  ui::Button& button = controls_.cmdK7Api;
  const bool causedValidation = button.causesValidation;
  button.SetCaption(RowOf(Message::StopButton).english);
  button.causesValidation = false;
  const ScopeGuard restore([&] {
    // Another test around this one may still offer its stop.
    button.causesValidation = causedValidation;
    try {
      button.SetCaption(RowOf(Message::K7ApiButton).english);
    } catch (const RuntimeError&) {
      // A refused caption is no reason to end the program.
    }
  });
  return test();
}

void Form1::cmdK7Api_Click() {
  if (k7ApiBusy_) {
    deps_.flags.stopRequested = true;
    return;
  }
  k7ApiBusy_ = true;
  const ScopeGuard done([this] { k7ApiBusy_ = false; });
  RunK7ApiTest();
}

}  // namespace tarvik
