#include <cstring>

#include "app/input_filters.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "report/typed_numbers.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_form.h"

using tarvik::test::Require;

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

/// A key typed into a field with any text. First two bytes: the key. Third byte, minus 128: the field's
/// maximum length. The rest: its text and label.
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
  int16_t accepted = key;
  tarvik::KeyPress_NumRange(accepted, box, room, fake.codePage);
  const bool numberAccepts = key == 8 || (digit && room > 0 && length < static_cast<size_t>(room));
  Require(accepted == (numberAccepts ? key : 0));

  auto& host = form.AddComboBox(3, tarvik::ui::kNoPage, tarvik::ui::ComboBoxStyle::Editable);
  host.SetText(text);
  accepted = key;
  tarvik::KeyPress_HostRange(accepted, host, fake.codePage);
  const bool letter = (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
  Require(accepted == (key == 8 || (length < 63 && (digit || letter || key == '.' || key == '-')) ? key : 0));

  const auto number = tarvik::ParseInt32(text);
  Require(tarvik::IsPingCount(text) == (number && *number >= 0));
  Require(Throws([&] { tarvik::report::ToInt32(text, text); }) == !number);
  Require(Throws([&] { tarvik::report::ToInt16(text, text); }) == !tarvik::ParseInt16(text));
  Require(tarvik::report::BoxName(text).size() <= text.size());
  const auto inBox = tarvik::report::NumberInBox(text, L"&Box:", 0, 9, fake.texts, fake.boxes);
  Require(inBox.has_value() == fake.boxes.boxes.empty());
  Require(!inBox || (*inBox >= 0 && *inBox <= 9));
  for (const auto& shown : fake.boxes.boxes) Require(shown.text.size() < 200);
}
