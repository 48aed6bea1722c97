#include <cstring>

#include "app/input_filters.h"
#include "app/number_box.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"
#include "tests/fuzz/program_ground.h"

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
  tarvik::test::ProgramGround ground;
  const size_t length = ground.codePage.AnsiLength(text);
  const bool digit = key >= '0' && key <= '9';

  auto& box = ground.form.AddTextBox(2, tarvik::ui::kNoPage, tarvik::ui::TextBoxStyle::Plain);
  box.SetText(text);
  int16_t taken = key;
  tarvik::KeyPress_NumRange(taken, box, room, ground.codePage);
  const bool numberTakes = key == 8 || (digit && room > 0 && length < static_cast<size_t>(room));
  Demand(taken == (numberTakes ? key : 0));

  auto& host = ground.form.AddComboBox(3, tarvik::ui::kNoPage, tarvik::ui::ComboBoxStyle::Editable);
  host.SetText(text);
  taken = key;
  tarvik::KeyPress_HostRange(taken, host, ground.codePage);
  const bool letter = (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
  Demand(taken == (key == 8 || (length < 63 && (digit || letter || key == '.' || key == '-')) ? key : 0));

  const auto number = tarvik::ParseInt32(text);
  Demand(tarvik::IsPingCount(text) == (number && *number >= 0));
  Demand(Throws([&] { tarvik::ToInt32(text, text); }) == !number);
  Demand(Throws([&] { tarvik::ToInt16(text, text); }) == !tarvik::ParseInt16(text));
  Demand(tarvik::BoxName(text).size() <= text.size());
  const auto inBox = tarvik::NumberInBox(text, L"&Box:", 0, 9, ground.texts, ground.boxes);
  Demand(inBox.has_value() == ground.boxes.boxes.empty());
  Demand(!inBox || (*inBox >= 0 && *inBox <= 9));
  for (const auto& shown : ground.boxes.boxes) Demand(shown.text.size() < 200);
}
