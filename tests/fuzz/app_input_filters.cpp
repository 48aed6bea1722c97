#include <cstring>

#include "app/input_filters.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "report/typed_numbers.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_form.h"

using tarvik::test::Demand;

namespace {

template <typename Convert>
bool Throws(Convert convert) {
  try {
    convert();
    return false;
  } catch (const tarvik::RuntimeError&) {
    return true;
  }
}

}  // namespace

/// A key in a box that holds any text: the first two bytes are the key, the third, less 128, the length
/// that the box may have, the rest its text and its label.
TARVIK_FUZZER(app_input_filters) {
  if (size < 3) return;
  int16_t key = 0;
  std::memcpy(&key, data, sizeof key);
  const auto room = static_cast<int16_t>(data[2] - 128);
  const std::wstring text(data + 3, data + size);
  tarvik::test::FakeContext fake;
  tarvik::ui::MemoryForm form;
  const size_t length = fake.codePage.AnsiLength(text);
  const bool digit = key >= '0' && key <= '9';

  auto& box = form.AddTextBox(2, tarvik::ui::kNoPage, tarvik::ui::TextBoxStyle::Plain);
  box.SetText(text);
  int16_t taken = key;
  tarvik::KeyPress_NumRange(taken, box, room, fake.codePage);
  const bool numberTakes = key == 8 || (digit && room > 0 && length < static_cast<size_t>(room));
  Demand(taken == (numberTakes ? key : 0));

  auto& host = form.AddComboBox(3, tarvik::ui::kNoPage, tarvik::ui::ComboBoxStyle::Editable);
  host.SetText(text);
  taken = key;
  tarvik::KeyPress_HostRange(taken, host, fake.codePage);
  const bool letter = (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
  Demand(taken == (key == 8 || (length < 63 && (digit || letter || key == '.' || key == '-')) ? key : 0));

  const auto number = tarvik::ParseInt32(text);
  Demand(tarvik::IsPingCount(text) == (number && *number >= 0));
  Demand(Throws([&] { tarvik::report::ToInt32(text, text); }) == !number);
  Demand(Throws([&] { tarvik::report::ToInt16(text, text); }) == !tarvik::ParseInt16(text));
  Demand(tarvik::report::BoxName(text).size() <= text.size());
  const auto inBox = tarvik::report::NumberInBox(text, L"&Box:", 0, 9, fake.texts, fake.boxes);
  Demand(inBox.has_value() == fake.boxes.boxes.empty());
  Demand(!inBox || (*inBox >= 0 && *inBox <= 9));
  for (const auto& shown : fake.boxes.boxes) Demand(shown.text.size() < 200);
}
