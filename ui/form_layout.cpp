#include "ui/form_layout.h"

#include <algorithm>

namespace tarvik::ui {

Spacing SpacingOf(const Form& form) {
  const int gap = std::max(1, (form.LineHeight() + 1) / 3);
  return {gap, 2 * gap};
}

BoxPtr Captioned(Control& control, std::initializer_list<Message> others) {
  std::vector<Message> messages = others;
  if (control.captionMessage) messages.push_back(*control.captionMessage);
  std::vector<std::wstring> captions;
  for (const Message message : messages) {
    const MessageRow& row = RowOf(message);
    captions.emplace_back(row.english);
    if (row.japanese != nullptr) captions.emplace_back(row.japanese);
  }
  return Fit(control, captions);
}

BoxPtr Sized(Control& control, const wchar_t* sample) { return Fit(control, {sample}); }

Size WindowSizeFor(const Form& form, Size client) {
  const Size window = form.WindowSize();
  const Size current = form.ClientSize();
  return {client.width + window.width - current.width, client.height + window.height - current.height};
}

Size MinWindowSizeFor(const Form& form, Size client) {
  const Size size = WindowSizeFor(form, client);
  const int room = form.WorkArea().height;
  return {size.width, room > 0 ? std::min(size.height, room) : size.height};
}

int ListHeightFor(const Form& form, int wanted, int others) {
  const int workArea = form.WorkArea().height;
  if (workArea <= 0) return wanted;
  const int room = workArea - WindowSizeFor(form, {0, others}).height;
  return std::clamp(room, form.LineHeight(), wanted);
}

}  // namespace tarvik::ui
