// The PMC read test with any texts in its fields and any answers of the library, and a user who types and
// clicks between the passes.

#include <fuzzer/FuzzedDataProvider.h>

#include "app/control_ids.h"
#include "cnclib/pmc_window.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_form.h"

using tarvik::test::Require;

namespace {

constexpr int kMaxRounds = 30;
constexpr int kBoxes[] = {tarvik::ID_txtPmcStart, tarvik::ID_txtPmcLen, tarvik::ID_txtCount,
                          tarvik::ID_txtSleep};

std::wstring Number(FuzzedDataProvider& input) {
  if (input.ConsumeBool()) return std::to_wstring(input.ConsumeIntegralInRange(-2, 40000));
  const std::string bytes = input.ConsumeRandomLengthString(70);
  return std::wstring(bytes.begin(), bytes.end());
}

}  // namespace

TARVIK_FUZZER(cnclib_pmc) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  test::FakeContext fake;
  fake.mode = input.ConsumeIntegralInRange(-1, 1);
  test::FakeCncLibrary library;
  library.openResult = input.ConsumeBool() ? input.ConsumeIntegral<int16_t>() : int16_t{0};
  library.nextHandle = input.ConsumeIntegral<uint16_t>();
  library.spoilsHeader = input.ConsumeBool();
  library.fillsRecords = input.ConsumeBool();
  library.data = input.ConsumeBytes<uint8_t>(input.ConsumeIntegralInRange<size_t>(0, 64));
  if (input.ConsumeBool()) library.missing.insert("nx_pmc_detailerr");
  CncTarget target{L"cnc", {L"8193", L"port"}, {Number(input), L"time"}};
  ui::MemoryScreen screen(fake.boxes);
  auto made = std::make_unique<ui::MemoryForm>(screen);
  ui::MemoryForm& form = *made;
  frmPmcTest window(std::move(made), fake.texts, fake.pump, library, fake.codePage, fake.system,
                    [&target] { return target; });
  window.Show();
  const auto box = [&form](int id) -> ui::MemoryTextBox& { return form.Get<ui::MemoryTextBox>(id); };
  const auto button = [&form](int id) -> ui::MemoryButton& { return form.Get<ui::MemoryButton>(id); };
  for (const int id : kBoxes)
    if (input.ConsumeBool()) box(id).SetText(Number(input));

  int rounds = 0;
  fake.pump.onEvents = [&] {
    switch (input.ConsumeIntegralInRange(0, 9)) {
      case 1:
        box(input.PickValueInArray(kBoxes)).SetText(Number(input));
        break;
      case 2:
        form.Get<ui::MemoryComboBox>(ID_cmbPmcAddr).Select(input.ConsumeIntegralInRange(0, 12));
        break;
      case 3:
        Require(!window.Running() || !form.Close());
        break;
      case 4:
        button(ID_cmdRead).Click();
        break;
      case 5:
        form.PressEscape();
        break;
      case 6:
        library.readResult = input.PickValueInArray<int16_t>({0, -16, 1, -103});
        break;
      default:
        break;
    }
    if (++rounds > kMaxRounds) button(ID_cmdStop).Click();
  };
  button(ID_cmdRead).Click();
  Require(library.AllGivenBack() && !window.Running());
  Require(button(ID_cmdRead).Enabled() && button(ID_cmdClose).Enabled() && !button(ID_cmdStop).Enabled());
  Require(form.Get<ui::MemoryListBox>(ID_lstData).redrawing);
  Require(form.Get<ui::MemoryListBox>(ID_lstData).Count() <= 8000);
  for (const std::string& call : library.calls) {
    // The last address fits into 16 bits: larger ones would appear as negative numbers.
    if (call.starts_with("nx_pmc_rdrange")) Require(call.find('-') == std::string::npos);
  }
}
